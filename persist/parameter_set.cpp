#include "persist/parameter_set.h"

#include <cwchar>

#include "base/framework_binding.h"
#include "base/iids.h"

namespace {
constexpr wchar_t kParameterSetComponent[] = L"ParametersCreatable";
}  // namespace

IParametersCreatable* CreateParameterSet() {
    SmartPtr<IComponentCollection> global(GLOBALComponents());
    if (!global) return nullptr;
    IParametersCreatable* created = nullptr;
    const HRESULT hr =
        global->GetComponent(static_cast<std::int32_t>(std::wcslen(kParameterSetComponent)), kParameterSetComponent,
                             &IID_IParametersCreatable, reinterpret_cast<void**>(&created));
    // A refusal carries no reference, whatever it left in the slot.
    return SUCCEEDED(hr) ? created : nullptr;
}
