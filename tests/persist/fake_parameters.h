// Parameter collections and a global collection of the tests' own, to watch
// what the persistence code hands to them. All live on the stack; their
// counts never free them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_interfaces.h"
#include "persist_support.h"
#include "support/fake_component_collection.h"
#include "support/module_host.h"

namespace persist_test {

// A read-only named collection whose entries are any objects (texts, too).
class ObjectEntries final : public INamedCollection {
public:
    std::int32_t refs = 1;
    std::vector<std::pair<std::wstring, SmartPtr<IUnknown>>> entries;

    void Add(std::wstring name, IUnknown* object) {
        if (object) object->AddRef();
        entries.emplace_back(std::move(name), SmartPtr<IUnknown>(object));
    }

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, HostIID("INamedCollection"))) return E_NOINTERFACE;
        *out = static_cast<INamedCollection*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }
    HRESULT GetCount(std::int32_t* count) override {
        *count = static_cast<std::int32_t>(entries.size());
        return S_OK;
    }
    HRESULT GetItem(std::int32_t index, IUnknown** item) override {
        *item = nullptr;
        if (index < 0 || static_cast<std::size_t>(index) >= entries.size()) return E_INVALIDARG;
        *item = entries[static_cast<std::size_t>(index)].second.get();
        if (*item) (*item)->AddRef();
        return S_OK;
    }
    HRESULT FindName(IString* name, std::int32_t* index) override {
        *index = -1;
        const std::wstring wanted = TextOf(name);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].first == wanted) {
                *index = static_cast<std::int32_t>(i);
                return S_OK;
            }
        }
        return E_FAIL;
    }
    HRESULT GetItemName(std::int32_t, IString**) override { return E_NOTIMPL; }
    HRESULT RemoveItem(std::int32_t) override { return E_NOTIMPL; }
    HRESULT Clear() override { return E_NOTIMPL; }
};

// A parameter collection that records what it is given. answersPersist
// decides whether it answers IDataPersist.
class RecordingParameters final : public IParametersCreatable, public IDataPersist {
public:
    explicit RecordingParameters(bool answersPersist) : answersPersist_(answersPersist) {}
    std::int32_t refs = 1;
    std::vector<std::wstring> added;  // names given to AddParameter, in order
    std::vector<std::int32_t> saves;  // flags of each Save
    std::vector<std::int32_t> loads;  // flags of each Load
    int lookups = 0;                  // calls of the collection operations
    bool throws = false;              // Save and Load throw after recording

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, HostIID("IParametersCreatable")) ||
            IsEqualIID(iid, HostIID("INamedCollection"))) {
            *out = static_cast<IParametersCreatable*>(this);
        } else if (answersPersist_ && IsEqualIID(iid, HostIID("IDataPersist"))) {
            *out = static_cast<IDataPersist*>(this);
        } else {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }

    HRESULT GetCount(std::int32_t*) override { return Looked(); }
    HRESULT GetItem(std::int32_t, IUnknown**) override { return Looked(); }
    HRESULT FindName(IString*, std::int32_t*) override { return Looked(); }
    HRESULT GetItemName(std::int32_t, IString**) override { return Looked(); }
    HRESULT RemoveItem(std::int32_t) override { return Looked(); }
    HRESULT Clear() override { return Looked(); }
    HRESULT Unused7() override { return Looked(); }
    HRESULT Unused8() override { return Looked(); }
    HRESULT Unused9() override { return Looked(); }
    HRESULT Unused10() override { return Looked(); }
    HRESULT Unused11() override { return Looked(); }
    HRESULT Unused12() override { return Looked(); }
    HRESULT Unused13() override { return Looked(); }
    HRESULT Unused14() override { return Looked(); }
    HRESULT Unused15() override { return Looked(); }
    HRESULT Unused16() override { return Looked(); }
    HRESULT AddParameter(IString* name, IVariant*, std::int32_t, std::int32_t) override {
        added.push_back(TextOf(name));
        return S_OK;
    }

    HRESULT Save(IDataStream*, std::int32_t flags) override {
        saves.push_back(flags);
        if (throws) throw std::runtime_error("save failure");
        return S_OK;
    }
    HRESULT Load(IDataStream*, std::int32_t flags) override {
        loads.push_back(flags);
        if (throws) throw std::runtime_error("load failure");
        return S_OK;
    }

private:
    HRESULT Looked() {
        ++lookups;
        return E_FAIL;
    }
    bool answersPersist_;
};

// A global collection that hands out the kit's components, except
// "ParametersCreatable", which `parameters` serves (a null object is a
// refusal). Records the names asked for.
class WatchingCollection final : public FakeComponentCollection {
public:
    explicit WatchingCollection(IComponentCollection* kit, IParametersCreatable* served = nullptr)
        : parameters(served), kit_(kit) {}
    std::int32_t refs = 1;
    IUnknown* parameters = nullptr;
    std::vector<std::wstring> asked;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, HostIID("IComponentCollection"))) {
            return E_NOINTERFACE;
        }
        *out = static_cast<IComponentCollection*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }
    HRESULT GetComponent(std::int32_t length, const wchar_t* name, const IID* iid, void** out) override {
        const std::wstring wanted(name, static_cast<std::size_t>(length));
        asked.push_back(wanted);
        if (wanted != L"ParametersCreatable") return kit_->GetComponent(length, name, iid, out);
        *out = nullptr;
        if (!parameters || !iid) return E_FAIL;
        return parameters->QueryInterface(*iid, out);
    }

private:
    IComponentCollection* kit_;
};

}  // namespace persist_test
