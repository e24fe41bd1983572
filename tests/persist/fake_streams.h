// Streams of the tests' own: one that offers neither element nor folder
// interface, and one that offers both by joining a kit XML stream and a kit
// folder stream. Both live on the stack; their counts never free them.
#pragma once

#include <cstdint>

#include "com_types.h"
#include "framework_interfaces.h"
#include "support/module_host.h"

namespace persist_test {

// IDataStream only. Counts every operation called on it.
class PlainStream final : public IDataStream {
public:
    std::int32_t refs = 1;
    int calls = 0;  // stream operations other than QueryInterface, AddRef, Release

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, HostIID("IDataStream"))) return E_NOINTERFACE;
        *out = static_cast<IDataStream*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }
    HRESULT Rewind() override { return Called(); }
    HRESULT GetSize(std::int32_t*) override { return Called(); }
    HRESULT GetPosition(std::int32_t*) override { return Called(); }
    HRESULT Read(void*, std::int32_t, std::int32_t*) override { return Called(); }
    HRESULT Write(const void*, std::int32_t, std::int32_t*) override { return Called(); }
    HRESULT SaveToFile(std::int32_t, const wchar_t*) override { return Called(); }
    HRESULT LoadFromFile(std::int32_t, const wchar_t*) override { return Called(); }

private:
    HRESULT Called() {
        ++calls;
        return E_NOTIMPL;
    }
};

// Answers IXMLStream and IString with the XML stream and IFolderStream with
// the folder stream; its own IDataStream does nothing.
class DualStream final : public IDataStream {
public:
    DualStream(IUnknown* xml, IUnknown* folder) : xml_(xml), folder_(folder) {}
    std::int32_t refs = 1;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (IsEqualIID(iid, HostIID("IXMLStream")) || IsEqualIID(iid, HostIID("IString"))) {
            return xml_->QueryInterface(iid, out);
        }
        if (IsEqualIID(iid, HostIID("IFolderStream"))) return folder_->QueryInterface(iid, out);
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, HostIID("IDataStream"))) return E_NOINTERFACE;
        *out = static_cast<IDataStream*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }
    HRESULT Rewind() override { return E_NOTIMPL; }
    HRESULT GetSize(std::int32_t*) override { return E_NOTIMPL; }
    HRESULT GetPosition(std::int32_t*) override { return E_NOTIMPL; }
    HRESULT Read(void*, std::int32_t, std::int32_t*) override { return E_NOTIMPL; }
    HRESULT Write(const void*, std::int32_t, std::int32_t*) override { return E_NOTIMPL; }
    HRESULT SaveToFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    HRESULT LoadFromFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }

private:
    IUnknown* xml_;
    IUnknown* folder_;
};

}  // namespace persist_test
