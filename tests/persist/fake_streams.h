// Streams of the tests' own: one that offers neither element nor folder
// interface, one that offers both by joining a kit XML stream and a kit folder
// stream, and a folder stream that throws. All live on the stack; their counts
// never free them.
#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "com_types.h"
#include "framework_interfaces.h"
#include "support/module_host.h"

namespace persist_test {

// An IDataStream whose stream operations all refuse; derived streams add the
// interfaces a test looks for. Counted from 1, never freed.
class InertDataStream : public IDataStream {
public:
    std::int32_t refs = 1;

    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }
    HRESULT Rewind() override { return E_NOTIMPL; }
    HRESULT GetSize(std::int32_t*) override { return E_NOTIMPL; }
    HRESULT GetPosition(std::int32_t*) override { return E_NOTIMPL; }
    HRESULT Read(void*, std::int32_t, std::int32_t*) override { return E_NOTIMPL; }
    HRESULT Write(const void*, std::int32_t, std::int32_t*) override { return E_NOTIMPL; }
    HRESULT SaveToFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    HRESULT LoadFromFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
};

// IDataStream only. Counts every operation called on it.
class PlainStream final : public InertDataStream {
public:
    int calls = 0;  // stream operations other than QueryInterface, AddRef, Release

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, HostIID("IDataStream"))) return E_NOINTERFACE;
        *out = static_cast<IDataStream*>(this);
        AddRef();
        return S_OK;
    }
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
class DualStream final : public InertDataStream {
public:
    DualStream(IUnknown* xml, IUnknown* folder) : xml_(xml), folder_(folder) {}

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

private:
    IUnknown* xml_;
    IUnknown* folder_;
};

// A folder stream that throws when it reaches the value named `throwAt`;
// reads before that fill 2-byte values with 42 and 4-byte values with 4.5f.
class ThrowingFolderStream final : public InertDataStream, public IFolderStream {
public:
    explicit ThrowingFolderStream(std::wstring throwAt) : throwAt_(std::move(throwAt)) {}
    std::vector<std::wstring> visited;  // names written or read, in order

    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (IsEqualIID(iid, HostIID("IFolderStream"))) {
            *out = static_cast<IFolderStream*>(this);
        } else if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, HostIID("IDataStream"))) {
            *out = static_cast<IDataStream*>(this);
        } else {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    // Both bases' counting slots reach the one count.
    std::int32_t AddRef() override { return InertDataStream::AddRef(); }
    std::int32_t Release() override { return InertDataStream::Release(); }

    HRESULT WriteValue(IString* name, const void*, std::int32_t, std::int32_t) override {
        Visit(name);
        return S_OK;
    }
    HRESULT GetValueSize(IString*, std::int32_t*) override { return E_NOTIMPL; }
    HRESULT GetValueCount(std::int32_t*) override { return E_NOTIMPL; }
    HRESULT GetValueName(std::int32_t, IString**) override { return E_NOTIMPL; }
    HRESULT RemoveValue(IString*) override { return E_NOTIMPL; }
    HRESULT ReadValue(IString* name, void* data, std::int32_t size, std::int32_t) override {
        Visit(name);
        if (size == 2) {
            const std::int16_t value = 42;
            std::memcpy(data, &value, sizeof value);
        } else if (size == 4) {
            const float value = 4.5f;
            std::memcpy(data, &value, sizeof value);
        }
        return S_OK;
    }

private:
    void Visit(IString* name) {
        tagREFString view{0, nullptr};
        name->GetString(&view);
        visited.emplace_back(view.string, static_cast<std::size_t>(view.length));
        if (visited.back() == throwAt_) throw std::runtime_error("stream failure");
    }
    std::wstring throwAt_;
};

}  // namespace persist_test
