#include "module_session.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cwchar>

#include "tool_error.h"

namespace timetool {

namespace {

[[noreturn]] void FailLoad(const std::string& path, const char* reason) {
    std::string why = reason ? reason : "unknown error";
    if (why.starts_with(path + ": ")) why.erase(0, path.size() + 2);  // the loader repeats the path
    throw ToolError{kExitModule, "timetool: cannot load module " + path + " (" + why + ")"};
}

void* OpenLibrary(const std::string& path) {
    // Libraries stay loaded for the life of the process, as the framework expects.
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) FailLoad(path, dlerror());
    return handle;
}

template <class Proc>
Proc Resolve(void* handle, const std::string& path, const char* symbol) {
    void* found = dlsym(handle, symbol);
    if (!found) FailLoad(path, (std::string("no symbol ") + symbol).c_str());
    return reinterpret_cast<Proc>(found);
}

}  // namespace

std::string ModuleFolder() {
    char buffer[4096];
    const ssize_t n = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    std::string exe = n > 0 ? std::string(buffer, static_cast<std::size_t>(n)) : std::string(".");
    const std::size_t slash = exe.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string(".") : exe.substr(0, slash);
    return folder + "/_binlinux";
}

ModuleSession::ModuleSession() : ModuleSession(ModuleFolder()) {}

ModuleSession::ModuleSession(const std::string& folder) {
    const std::string kitPath = folder + "/CollectionsEx.so";
    const std::string calendarPath = folder + "/Calendar.so";

    void* calendar = OpenLibrary(calendarPath);
    calendarCreate_ = Resolve<CreateFunctionProc>(calendar, calendarPath, "CreateFunction");
    auto initialize = Resolve<InitializeModuleProc>(calendar, calendarPath, kInitializeModuleSymbol);
    void* kit = OpenLibrary(kitPath);
    auto kitCreate = Resolve<CreateFunctionProc>(kit, kitPath, "CreateFunction");

    static const wchar_t kCollectionName[] = L"GlobalComponentCollection";
    CREATEFUNCTION createCollection = nullptr;
    if (FAILED(
            kitCreate(static_cast<std::int32_t>(std::wcslen(kCollectionName)), kCollectionName, &createCollection)) ||
        !createCollection) {
        FailLoad(kitPath, "no GlobalComponentCollection");
    }
    static const IID kCollectionIid = InterfaceId("IComponentCollection");
    const HRESULT hr = createCollection(nullptr, &kCollectionIid, collection_.put_void());
    if (FAILED(hr) || !collection_) FailLoad(kitPath, ("GlobalComponentCollection failed " + FormatResult(hr)).c_str());
    initialize(nullptr, collection_.get());
}

void ModuleSession::CreateComponent(const wchar_t* name, const IID& iid, void** out) const {
    CREATEFUNCTION create = nullptr;
    const auto length = static_cast<std::int32_t>(std::wcslen(name));
    if (FAILED(calendarCreate_(length, name, &create)) || !create) {
        CheckModule(E_FAIL, "CreateFunction");
    }
    CheckModule(create(nullptr, &iid, out), "component creation");
}

void ModuleSession::CreateKitComponent(const wchar_t* name, const IID& iid, void** out) const {
    CheckModule(collection_->GetComponent(static_cast<std::int32_t>(std::wcslen(name)), name, &iid, out),
                "IComponentCollection::GetComponent");
    if (!*out) CheckModule(E_FAIL, "IComponentCollection::GetComponent");
}

void CheckModule(HRESULT hr, const char* operation) {
    if (SUCCEEDED(hr)) return;
    throw ToolError{kExitModule, std::string("timetool: ") + operation + " failed with " + FormatResult(hr) +
                                     (hr == E_NOTIMPL ? " (not implemented by the module yet)" : "")};
}

std::string FormatResult(HRESULT hr) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%08X", static_cast<unsigned>(hr));
    return buffer;
}

}  // namespace timetool
