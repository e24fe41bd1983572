// "GlobalComponentCollection": the registry of components by name. It starts
// with the kit's own components (library "Collections"); hosts register the
// components of other libraries.
#include <mutex>
#include <string>
#include <vector>

#include "hostkit/component_string.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"

namespace kit {

namespace {

struct RegisteredComponent {
    std::wstring name;  // compared exactly (case matters)
    std::wstring library;
    CREATEFUNCTION create;  // null until first resolved; reset when the library changes
};

class ComponentCollection final : public IComponentCollection, public RefCounted {
public:
    ComponentCollection() {
        components_.reserve(KitComponentCount());
        for (std::size_t i = 0; i < KitComponentCount(); ++i) {
            const std::wstring_view name = KitComponentName(i);
            components_.push_back({std::wstring(name), std::wstring(kKitLibrary), FindKitCreationFunction(name)});
        }
    }

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this, {{kIID_IComponentCollection, static_cast<IComponentCollection*>(this)}}, iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // S_OK for a new name; S_FALSE when the name was registered already (its
    // library is replaced and the count stays).
    HRESULT RegisterComponent(std::int32_t nameLength, const wchar_t* name, std::int32_t libraryLength,
                              const wchar_t* library) override {
        HRESULT hr = CheckText(nameLength, name);
        if (SUCCEEDED(hr)) hr = CheckText(libraryLength, library);
        if (FAILED(hr)) return hr;
        if (nameLength == 0 || libraryLength == 0) return E_INVALIDARG;
        const std::wstring_view name_text = TextView(nameLength, name);
        const std::wstring_view library_text = TextView(libraryLength, library);
        return NoThrow([&] {
            std::lock_guard lock(mutex_);
            if (RegisteredComponent* found = Find(name_text)) {
                if (found->library != library_text) {
                    found->library.assign(library_text);
                    found->create = nullptr;
                }
                return S_FALSE;
            }
            components_.push_back({std::wstring(name_text), std::wstring(library_text), nullptr});
            return S_OK;
        });
    }

    HRESULT GetComponentCount(std::int32_t* count) override {
        if (!count) return E_POINTER;
        std::lock_guard lock(mutex_);
        *count = static_cast<std::int32_t>(components_.size());
        return S_OK;
    }

    HRESULT Unused3() override { return E_NOTIMPL; }
    HRESULT Unused4() override { return E_NOTIMPL; }
    HRESULT Unused5() override { return E_NOTIMPL; }
    HRESULT Unused6() override { return E_NOTIMPL; }
    HRESULT Unused7() override { return E_NOTIMPL; }
    HRESULT Unused8() override { return E_NOTIMPL; }
    HRESULT Unused9() override { return E_NOTIMPL; }
    HRESULT Unused10() override { return E_NOTIMPL; }
    HRESULT Unused11() override { return E_NOTIMPL; }
    HRESULT Unused12() override { return E_NOTIMPL; }
    HRESULT Unused13() override { return E_NOTIMPL; }

    // Without iid: a new descriptor (IComponentString) of the registered
    // component. With iid: a new instance answering *iid. E_FAIL for a name
    // that is not registered.
    HRESULT GetComponent(std::int32_t nameLength, const wchar_t* name, const IID* iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        const HRESULT hr = CheckText(nameLength, name);
        if (FAILED(hr)) return hr;
        const std::wstring_view name_text = TextView(nameLength, name);
        return NoThrow([&] { return iid ? CreateInstance(name_text, *iid, out) : Describe(name_text, out); });
    }

private:
    ~ComponentCollection() override = default;

    // Called with mutex_ held.
    RegisteredComponent* Find(std::wstring_view name) {
        for (RegisteredComponent& component : components_) {
            if (component.name == name) return &component;
        }
        return nullptr;
    }

    HRESULT Describe(std::wstring_view name, void** out) {
        std::wstring library;
        {
            std::lock_guard lock(mutex_);
            const RegisteredComponent* found = Find(name);
            if (!found) return E_FAIL;
            library = found->library;
        }
        return NewComponentString(library, name, reinterpret_cast<IComponentString**>(out));
    }

    // The creation function is resolved outside the lock (loading a library
    // may run foreign code) and cached for the next call.
    HRESULT CreateInstance(std::wstring_view name, const IID& iid, void** out) {
        CREATEFUNCTION create = nullptr;
        std::wstring library;
        {
            std::lock_guard lock(mutex_);
            const RegisteredComponent* found = Find(name);
            if (!found) return E_FAIL;
            create = found->create;
            if (!create) library = found->library;
        }
        if (!create) {
            const HRESULT hr = ResolveCreationFunction(library, name, &create);
            if (FAILED(hr)) return hr;
            std::lock_guard lock(mutex_);
            RegisteredComponent* found = Find(name);
            if (found && found->library == library) found->create = create;
        }
        return create(nullptr, &iid, out);
    }

    std::mutex mutex_;  // guards components_
    std::vector<RegisteredComponent> components_;
};

}  // namespace

HRESULT CreateGlobalComponentCollection(const IID& iid, void** out) {
    return CreateObject<ComponentCollection>(iid, out);
}

}  // namespace kit
