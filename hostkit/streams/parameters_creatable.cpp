// "ParametersCreatable": a named collection of parameter values that saves
// and loads itself through XML and folder streams.
#include "framework_interfaces.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/named_entries.h"
#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/parameter_entry.h"
#include "hostkit/streams/parameters_folder.h"
#include "hostkit/streams/parameters_xml.h"
#include "hostkit/streams/stream_results.h"
#include "module_interfaces.h"

namespace kit {

namespace {

class ParametersCreatable final : public IParametersCreatable, public IDataPersist, public RefCounted {
public:
    ParametersCreatable() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(static_cast<IParametersCreatable*>(this),
                              {{kIID_IParametersCreatable, static_cast<IParametersCreatable*>(this)},
                               {kIID_INamedCollection, static_cast<IParametersCreatable*>(this)},
                               {kIID_IDataPersist, static_cast<IDataPersist*>(this)}},
                              iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // INamedCollection
    HRESULT GetCount(std::int32_t* count) override { return ReportCount(entries_.size(), count); }
    // A new variant holding a copy of the entry's value.
    HRESULT GetItem(std::int32_t index, IUnknown** item) override {
        return NoThrow([&] {
            HRESULT hr = ClearIndexedOut(item, index, entries_.size());
            if (FAILED(hr)) return hr;
            IVariant* variant = nullptr;
            hr = streams::VariantFromEntry(entries_[static_cast<std::size_t>(index)], &variant);
            if (SUCCEEDED(hr)) *item = variant;
            return hr;
        });
    }
    // *index is -1 and the result kE_NameNotFound for an absent name.
    HRESULT FindName(IString* name, std::int32_t* index) override {
        return FindEntryIndex(entries_, &streams::ParameterEntry::name, name, index, kE_NameNotFound);
    }
    HRESULT GetItemName(std::int32_t index, IString** name) override {
        return EntryName(entries_, &streams::ParameterEntry::name, index, name);
    }
    HRESULT RemoveItem(std::int32_t index) override {
        if (!IndexInRange(index, entries_.size())) return E_INVALIDARG;
        entries_.erase(entries_.begin() + index);
        return S_OK;
    }
    HRESULT Clear() override {
        entries_.clear();
        return S_OK;
    }

    HRESULT Unused7() override { return E_NOTIMPL; }
    HRESULT Unused8() override { return E_NOTIMPL; }
    HRESULT Unused9() override { return E_NOTIMPL; }
    HRESULT Unused10() override { return E_NOTIMPL; }
    HRESULT Unused11() override { return E_NOTIMPL; }
    HRESULT Unused12() override { return E_NOTIMPL; }
    HRESULT Unused13() override { return E_NOTIMPL; }
    HRESULT Unused14() override { return E_NOTIMPL; }
    HRESULT Unused15() override { return E_NOTIMPL; }
    HRESULT Unused16() override { return E_NOTIMPL; }

    // Copies the variant's value. Names are unique: adding an existing name
    // replaces that entry's value in place and answers S_FALSE. The two
    // reserved arguments are ignored.
    HRESULT AddParameter(IString* name, IVariant* value, std::int32_t /*reserved1*/,
                         std::int32_t /*reserved2*/) override {
        return NoThrow([&] {
            std::wstring_view key;
            HRESULT hr = ReadString(name, &key);
            if (FAILED(hr)) return hr;
            if (key.empty()) return E_INVALIDARG;
            if (key.size() > streams::kMaxStreamSize) return E_OUTOFMEMORY;
            streams::ParameterEntry entry;
            hr = streams::EntryFromVariant(value, &entry);
            if (FAILED(hr)) return hr;
            const std::ptrdiff_t found = FindEntry(entries_, &streams::ParameterEntry::name, key);
            if (found >= 0) {
                entry.name = std::move(entries_[static_cast<std::size_t>(found)].name);
                entries_[static_cast<std::size_t>(found)] = std::move(entry);
                return S_FALSE;
            }
            if (entries_.size() >= streams::kMaxStreamSize) return E_OUTOFMEMORY;
            entry.name.assign(key);
            entries_.push_back(std::move(entry));
            return S_OK;
        });
    }

    // IDataPersist: the XML form when the stream answers IXMLStream, else the
    // folder form; flags are ignored. E_NOINTERFACE for a stream of neither
    // kind. A failed load leaves the entries as they were.
    HRESULT Save(IDataStream* stream, std::int32_t /*flags*/) override {
        return NoThrow([&] {
            if (!stream) return E_POINTER;
            SmartPtr<IXMLStream> xml;
            if (SUCCEEDED(stream->QueryInterface(kIID_IXMLStream, xml.put_void())) && xml) {
                return streams::SaveParametersXml(entries_, xml.get());
            }
            SmartPtr<IFolderStream> folder;
            if (SUCCEEDED(stream->QueryInterface(kIID_IFolderStream, folder.put_void())) && folder) {
                return streams::SaveParametersFolder(entries_, folder.get());
            }
            return E_NOINTERFACE;
        });
    }
    HRESULT Load(IDataStream* stream, std::int32_t /*flags*/) override {
        return NoThrow([&] {
            if (!stream) return E_POINTER;
            SmartPtr<IXMLStream> xml;
            if (SUCCEEDED(stream->QueryInterface(kIID_IXMLStream, xml.put_void())) && xml) {
                SmartPtr<IString> text;
                if (FAILED(stream->QueryInterface(kIID_IString, text.put_void())) || !text) return E_NOINTERFACE;
                std::wstring_view source;
                const HRESULT hr = ReadString(text.get(), &source);
                if (FAILED(hr)) return hr;
                return streams::LoadParametersXml(source, &entries_);
            }
            SmartPtr<IFolderStream> folder;
            if (SUCCEEDED(stream->QueryInterface(kIID_IFolderStream, folder.put_void())) && folder) {
                return streams::LoadParametersFolder(folder.get(), &entries_);
            }
            return E_NOINTERFACE;
        });
    }

private:
    ~ParametersCreatable() override = default;

    streams::ParameterEntries entries_;  // in the order added; names unique
};

}  // namespace

HRESULT CreateParametersCreatable(const IID& iid, void** out) { return CreateObject<ParametersCreatable>(iid, out); }

}  // namespace kit
