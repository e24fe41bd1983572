#include "module_loader.h"

#include <stdexcept>

namespace bench {

std::string ModuleFolder() {
    return calendar_module::FindModuleFolder(calendar_module::kModuleFolderVariable, {CAL_MODULE_FOLDER}).path;
}

ModuleLoader::ModuleLoader() : host_(calendar_module::ModuleHost::LoadOrThrow(ModuleFolder())) {}

SmartPtr<ITime> ModuleLoader::CreateTime() const {
    HRESULT hr = S_OK;
    SmartPtr<ITime> time = host_.CreateTime(&hr);
    if (!time) throw std::runtime_error("the module gives no Time object: " + calendar_module::FormatResult(hr));
    return time;
}

SmartPtr<IDblVector> ModuleLoader::CreateDblBuffer() const {
    HRESULT hr = S_OK;
    SmartPtr<IDblVector> vector = host_.CreateDblBuffer(&hr);
    if (!vector) {
        throw std::runtime_error("the module gives no DblBuffer object: " + calendar_module::FormatResult(hr));
    }
    return vector;
}

const ModuleLoader& Module() {
    static const ModuleLoader loader;
    return loader;
}

}  // namespace bench
