#include "module_session.h"

#include <filesystem>

#include "tool_error.h"

namespace timetool {

namespace {

// "/usr/lib/x86_64-linux-gnu/calendar-module/_binlinux" rather than the same
// folder reached through "/usr/bin/../lib/...".
std::string Normal(const std::string& path) { return std::filesystem::path(path).lexically_normal().string(); }

calendar_module::ModuleHost LoadOrFail(const std::string& folder) {
    calendar_module::ModuleHost host(folder);
    if (!host.loaded()) throw ToolError{kExitModule, "timetool: " + host.failure().Message()};
    return host;
}

}  // namespace

ModuleFolderChoice ChooseModuleFolder() {
    using calendar_module::FindModuleFolder;
    const calendar_module::ModuleFolder chosen = FindModuleFolder(calendar_module::kModuleFolderVariable, {});
    if (!chosen.path.empty()) {
        return {chosen.path, std::string("set by ") + calendar_module::kModuleFolderVariable, chosen.found};
    }
    const calendar_module::ModuleFolder buildTree = FindModuleFolder(nullptr, {calendar_module::kModuleFolderName});
    if (buildTree.found) return {buildTree.path, "build tree", true};
    const calendar_module::ModuleFolder installed = FindModuleFolder(nullptr, {CAL_MODULE_DIR_FROM_BIN});
    if (installed.found) return {Normal(installed.path), "installed tree", true};
    return {buildTree.path, "no module beside the executable nor in " + Normal(installed.path), false};
}

ModuleSession::ModuleSession() : ModuleSession(ChooseModuleFolder().path) {}

ModuleSession::ModuleSession(const std::string& folder) : host_(LoadOrFail(folder)) {}

void ModuleSession::CreateComponent(const wchar_t* name, const IID& iid, void** out) const {
    if (!host_.calendar().Factory(name)) CheckModule(E_FAIL, "CreateFunction");
    CheckModule(host_.CreateComponent(name, iid, out), "component creation");
}

void ModuleSession::CreateKitComponent(const wchar_t* name, const IID& iid, void** out) const {
    CheckModule(host_.CreateKitComponent(name, iid, out), "IComponentCollection::GetComponent");
}

void CheckModule(HRESULT hr, const char* operation) {
    if (SUCCEEDED(hr)) return;
    throw ToolError{kExitModule, std::string("timetool: ") + operation + " failed with " + FormatResult(hr) +
                                     (hr == E_NOTIMPL ? " (not implemented by the module yet)" : "")};
}

}  // namespace timetool
