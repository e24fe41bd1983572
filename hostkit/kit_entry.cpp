#include "com_types.h"
#include "framework_interfaces.h"

extern "C" __attribute__((visibility("default"))) HRESULT CreateFunction(std::int32_t, const wchar_t*,
                                                                         CREATEFUNCTION*) {
    return E_FAIL;
}
