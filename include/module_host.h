// Hosting the calendar module: Calendar.so and the host kit CollectionsEx.so
// opened with dlopen from one folder, the kit's global collection handed to
// the module through InitializeModule, components created by name through
// CreateFunction. Header-only, so a host needs nothing but these headers and
// the two libraries.
//
// Failures come back as values: a LoadFailure names the library path and the
// loader's reason, and creation calls return the result code. Nothing here
// throws except the *OrThrow functions, for hosts that want exceptions, and
// std::bad_alloc.
//
// Libraries are never closed: the framework expects a module to stay loaded
// for the life of the process (its exit handlers and the objects it handed
// out still point into it). Opening the same path again is cheap and gives
// the same library.
#pragma once

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_entry.h"
#include "module_interfaces.h"

namespace calendar_module {

inline constexpr std::string_view kCalendarModule = "Calendar";
inline constexpr std::string_view kHostKitModule = "CollectionsEx";
// The framework's name for a folder of module libraries.
inline constexpr std::string_view kModuleFolderName = "_binlinux";
// The environment variable through which a person points a host at another
// module folder.
inline constexpr const char* kModuleFolderVariable = "CALENDAR_MODULE_DIR";

// "0x80004005": result codes as people read them.
inline std::string FormatResult(HRESULT hr) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(hr));
    return text;
}

// "<folder>/<module>.so"; an empty folder is the current directory, never
// the loader's search path.
inline std::string ModulePath(std::string_view folder, std::string_view module) {
    std::string path(folder.empty() ? std::string_view(".") : folder);
    if (path.back() != '/') path += '/';
    path.append(module);
    path += ".so";
    return path;
}

// Why loading failed; failed() is false when nothing did.
struct LoadFailure {
    std::string path;     // the library concerned
    std::string reason;   // the loader's text without the path it repeats, or what is missing
    HRESULT code = S_OK;  // E_FAIL, or the kit's own code when its collection could not be created

    bool failed() const { return FAILED(code); }
    // "cannot load module /opt/x/_binlinux/Calendar.so (cannot open shared object file: No such file or directory)"
    std::string Message() const { return "cannot load module " + path + " (" + reason + ")"; }
};

class ModuleLoadError : public std::runtime_error {
public:
    explicit ModuleLoadError(LoadFailure failure)
        : std::runtime_error(failure.Message()), failure_(std::move(failure)) {}
    const LoadFailure& failure() const { return failure_; }

private:
    LoadFailure failure_;
};

namespace detail {

inline LoadFailure Failure(const std::string& path, std::string reason, HRESULT code = E_FAIL) {
    const std::string repeated = path + ": ";
    if (reason.starts_with(repeated)) reason.erase(0, repeated.size());
    return LoadFailure{path, std::move(reason), code};
}

inline std::int32_t CountedLength(std::wstring_view text) {
    return text.size() > 0x7FFFFFFF ? 0x7FFFFFFF : static_cast<std::int32_t>(text.size());
}

}  // namespace detail

// One framework module opened with dlopen, and its exports. A default record
// is not loaded: every entry point is null and every creation fails with E_FAIL.
struct ModuleLibrary {
    std::string path;
    void* handle = nullptr;
    CreateFunctionProc createFunction = nullptr;  // the plain "CreateFunction"
    // The decorated exports, as this module exports them; null in a module
    // that lacks them.
    InitializeModuleProc initializeModule = nullptr;
    ModuleCreateFunctionProc moduleCreateFunction = nullptr;
    IIDOfcProc iidOfc = nullptr;
    // "InitializeModule" under its plain name, as the host kit exports it.
    InitializeModuleProc plainInitializeModule = nullptr;

    // Opens the library at path; on failure returns a record that is not
    // loaded and fills *failure (when given) with the path and the loader's text.
    static ModuleLibrary Open(const std::string& path, LoadFailure* failure = nullptr) {
        ModuleLibrary library;
        library.path = path;
        library.handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!library.handle) {
            const char* reason = dlerror();
            if (failure) *failure = detail::Failure(path, reason ? reason : "unknown loader error");
            return library;
        }
        library.createFunction = reinterpret_cast<CreateFunctionProc>(library.Symbol("CreateFunction"));
        library.initializeModule = reinterpret_cast<InitializeModuleProc>(library.Symbol(kInitializeModuleSymbol));
        library.moduleCreateFunction =
            reinterpret_cast<ModuleCreateFunctionProc>(library.Symbol(kModuleCreateFunctionSymbol));
        library.iidOfc = reinterpret_cast<IIDOfcProc>(library.Symbol(kIIDOfcSymbol));
        library.plainInitializeModule = reinterpret_cast<InitializeModuleProc>(library.Symbol("InitializeModule"));
        return library;
    }
    static ModuleLibrary OpenOrThrow(const std::string& path) {
        LoadFailure failure;
        ModuleLibrary library = Open(path, &failure);
        if (!library.loaded()) throw ModuleLoadError(std::move(failure));
        return library;
    }

    bool loaded() const { return handle != nullptr; }

    // A symbol of the library, null when absent.
    void* Symbol(const char* name) const {
        if (!handle) return nullptr;
        void* found = dlsym(handle, name);
        if (!found) dlerror();  // a miss is an answer here, not an error for the next caller to find
        return found;
    }

    // The creation function of a served component; null when not served.
    CREATEFUNCTION Factory(std::wstring_view component) const {
        CREATEFUNCTION create = nullptr;
        if (createFunction && FAILED(createFunction(detail::CountedLength(component), component.data(), &create))) {
            return nullptr;
        }
        return create;
    }

    // A new component answering iid in *out (one reference for the caller).
    // E_FAIL when the library does not serve the name, else the creation's
    // own code; *out is null on every failure.
    HRESULT Create(std::wstring_view component, const IID& iid, void** out) const {
        if (!out) return E_POINTER;
        *out = nullptr;
        CREATEFUNCTION create = Factory(component);
        if (!create) return E_FAIL;
        const HRESULT hr = create(nullptr, &iid, out);
        if (FAILED(hr)) {
            *out = nullptr;
            return hr;
        }
        return *out ? hr : E_FAIL;
    }
    template <class I>
    SmartPtr<I> Create(std::wstring_view component, const IID& iid, HRESULT* result = nullptr) const {
        SmartPtr<I> object;
        const HRESULT hr = Create(component, iid, object.put_void());
        if (result) *result = hr;
        return object;
    }
};

// Whether the host hands the kit's collection to the module. A host that
// does not leaves the module to load "./_binlinux/CollectionsEx.so" relative
// to the current directory the first time it needs a framework service.
enum class CollectionUse { Install, HostOnly };

// The calendar module and the host kit loaded from one folder.
class ModuleHost {
public:
    // Loads Calendar.so and CollectionsEx.so from folder and creates the
    // kit's global collection; with CollectionUse::Install (the default)
    // hands it to the module. When anything fails the host is not loaded()
    // and failure() says what; nothing is thrown.
    explicit ModuleHost(std::string folder, CollectionUse use = CollectionUse::Install) : folder_(std::move(folder)) {
        Load(use);
    }
    static ModuleHost LoadOrThrow(std::string folder, CollectionUse use = CollectionUse::Install) {
        ModuleHost host(std::move(folder), use);
        if (!host.loaded()) throw ModuleLoadError(host.failure());
        return host;
    }

    ModuleHost(const ModuleHost&) = delete;
    ModuleHost& operator=(const ModuleHost&) = delete;
    ModuleHost(ModuleHost&&) noexcept = default;
    ModuleHost& operator=(ModuleHost&&) noexcept = default;
    ~ModuleHost() = default;

    bool loaded() const { return !failure_.failed(); }
    const LoadFailure& failure() const { return failure_; }
    const std::string& folder() const { return folder_; }
    const ModuleLibrary& calendar() const { return calendar_; }
    const ModuleLibrary& kit() const { return kit_; }
    // The kit's global collection, owned by the host (the module holds its
    // own reference once installed); null when loading failed.
    IComponentCollection* collection() const { return collection_.get(); }

    // Hands the collection to the module, which keeps one reference to it
    // (replacing the one it held) for the rest of the process; installing
    // it again changes nothing. E_FAIL when the host is not loaded.
    HRESULT InstallCollection() const {
        if (!loaded() || !calendar_.initializeModule) return E_FAIL;
        return calendar_.initializeModule(nullptr, collection_.get());
    }

    // Components of the module ("Time", "DblBuffer"), as ModuleLibrary::Create.
    HRESULT CreateComponent(std::wstring_view name, const IID& iid, void** out) const {
        return calendar_.Create(name, iid, out);
    }
    template <class I>
    SmartPtr<I> Create(std::wstring_view name, const IID& iid, HRESULT* result = nullptr) const {
        return calendar_.Create<I>(name, iid, result);
    }
    SmartPtr<ITime> CreateTime(HRESULT* result = nullptr) const {
        return Create<ITime>(L"Time", IIDFromName("ITime"), result);
    }
    SmartPtr<IDblVector> CreateDblBuffer(HRESULT* result = nullptr) const {
        return Create<IDblVector>(L"DblBuffer", IIDFromName("IDblVector"), result);
    }

    // Components of the kit ("XMLStream", "FolderStream", "DataStream",
    // "Registry", ...), created through the global collection. The
    // collection's own code, or E_FAIL when it succeeded without an object
    // or the host is not loaded; *out is null on every failure.
    HRESULT CreateKitComponent(std::wstring_view name, const IID& iid, void** out) const {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!collection_) return E_FAIL;
        const HRESULT hr = collection_->GetComponent(detail::CountedLength(name), name.data(), &iid, out);
        if (FAILED(hr)) {
            *out = nullptr;
            return hr;
        }
        return *out ? hr : E_FAIL;
    }
    template <class I>
    SmartPtr<I> CreateKit(std::wstring_view name, const IID& iid, HRESULT* result = nullptr) const {
        SmartPtr<I> object;
        const HRESULT hr = CreateKitComponent(name, iid, object.put_void());
        if (result) *result = hr;
        return object;
    }

private:
    void Load(CollectionUse use) {
        const std::string calendarPath = ModulePath(folder_, kCalendarModule);
        const std::string kitPath = ModulePath(folder_, kHostKitModule);
        calendar_ = ModuleLibrary::Open(calendarPath, &failure_);
        if (!calendar_.loaded()) return;
        if (!calendar_.createFunction) return Fail(calendarPath, "no symbol CreateFunction");
        if (!calendar_.initializeModule) return Fail(calendarPath, std::string("no symbol ") + kInitializeModuleSymbol);
        kit_ = ModuleLibrary::Open(kitPath, &failure_);
        if (!kit_.loaded()) return;
        if (!kit_.createFunction) return Fail(kitPath, "no symbol CreateFunction");

        static constexpr IID kCollectionIid = IIDFromName("IComponentCollection");
        if (!kit_.Factory(L"GlobalComponentCollection")) return Fail(kitPath, "no GlobalComponentCollection");
        const HRESULT hr = kit_.Create(L"GlobalComponentCollection", kCollectionIid, collection_.put_void());
        if (FAILED(hr)) return Fail(kitPath, "GlobalComponentCollection failed " + FormatResult(hr), hr);
        if (use == CollectionUse::Install) InstallCollection();
    }

    void Fail(const std::string& path, std::string reason, HRESULT code = E_FAIL) {
        failure_ = detail::Failure(path, std::move(reason), code);
        collection_.reset();
    }

    std::string folder_;
    LoadFailure failure_;
    ModuleLibrary calendar_;
    ModuleLibrary kit_;
    SmartPtr<IComponentCollection> collection_;
};

// The folder of the running executable (from /proc/self/exe); "." when the
// system does not say.
inline std::string ExecutableFolder() {
    std::string buffer(4096, '\0');
    const ssize_t n = readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (n <= 0 || static_cast<std::size_t>(n) >= buffer.size()) return ".";
    buffer.resize(static_cast<std::size_t>(n));
    const std::size_t slash = buffer.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? std::string("/") : buffer.substr(0, slash);
}

// A module folder and the rule that chose it, for messages and version output.
struct ModuleFolder {
    std::string path;
    std::string source;  // the variable's name, "relative to the executable" or "fixed path"
    bool found = false;  // whether Calendar.so is there
};

// Where a host finds the module: the folder named by the environment
// variable when it is set and not empty (taken as given, so a wrong setting
// is reported rather than passed over); else the first candidate holding
// Calendar.so, a relative candidate being taken from the executable's
// folder; else the first candidate, found false, so the load names a path.
inline ModuleFolder FindModuleFolder(const char* variable, std::initializer_list<std::string_view> candidates) {
    if (variable) {
        const char* value = std::getenv(variable);
        if (value && *value) {
            return ModuleFolder{value, variable, access(ModulePath(value, kCalendarModule).c_str(), R_OK) == 0};
        }
    }
    const std::string executable = ExecutableFolder();
    ModuleFolder first;
    for (std::string_view candidate : candidates) {
        const bool relative = !candidate.starts_with('/');
        std::string path;
        if (relative) {
            path = executable;
            if (path.back() != '/') path += '/';
        }
        path.append(candidate);
        const char* source = relative ? "relative to the executable" : "fixed path";
        if (access(ModulePath(path, kCalendarModule).c_str(), R_OK) == 0) return ModuleFolder{path, source, true};
        if (first.path.empty()) first = ModuleFolder{path, source, false};
    }
    return first;
}

}  // namespace calendar_module
