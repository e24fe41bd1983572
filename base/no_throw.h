// The boundary between the module's C++ code and its interfaces: no exception
// crosses an interface, so an operation that may throw runs inside NoThrow.
#pragma once

#include <new>
#include <utility>

#include "com_types.h"

// The operation's own result, or E_OUTOFMEMORY for a failed allocation and
// E_FAIL for any other exception (a framework object's, for instance).
template <class Operation>
HRESULT NoThrow(Operation&& operation) noexcept {
    try {
        return std::forward<Operation>(operation)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}
