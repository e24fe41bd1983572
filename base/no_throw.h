// The boundary between the module's C++ code and its interfaces: no exception
// crosses an interface, so an operation that may throw runs inside NoThrow.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "com_types.h"

// The operation's own result. When it throws: null for an operation that
// returns an object, otherwise E_OUTOFMEMORY for a failed allocation and
// E_FAIL for any other exception (a framework object's, for instance).
template <class Operation>
auto NoThrow(Operation&& operation) noexcept -> decltype(std::forward<Operation>(operation)()) {
    using Result = decltype(std::forward<Operation>(operation)());
    try {
        return std::forward<Operation>(operation)();
    } catch (const std::bad_alloc&) {
        if constexpr (std::is_pointer_v<Result>)
            return nullptr;
        else
            return E_OUTOFMEMORY;
    } catch (...) {
        if constexpr (std::is_pointer_v<Result>)
            return nullptr;
        else
            return E_FAIL;
    }
}
