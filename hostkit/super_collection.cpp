// "SuperCollection": an ordered list of entries, each a key text, a value
// object, an optional third text and an integer of flags. Keys need not be
// unique; name lookup finds the first entry with the exact key.
#include <string>
#include <utility>
#include <vector>

#include "hostkit/creatable_string.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/named_entries.h"

namespace kit {

namespace {

struct Entry {
    Entry(std::wstring key_text, IUnknown* held_value, std::wstring extra_text, bool extra_given,
          std::int32_t entry_flags)
        : key(std::move(key_text)),
          value(held_value),
          extra(std::move(extra_text)),
          has_extra(extra_given),
          flags(entry_flags) {}
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    Entry(Entry&& other) noexcept
        : key(std::move(other.key)),
          value(std::exchange(other.value, nullptr)),
          extra(std::move(other.extra)),
          has_extra(other.has_extra),
          flags(other.flags) {}
    Entry& operator=(Entry&& other) noexcept {
        std::swap(key, other.key);
        std::swap(value, other.value);
        std::swap(extra, other.extra);
        std::swap(has_extra, other.has_extra);
        std::swap(flags, other.flags);
        return *this;
    }
    ~Entry() {
        if (value) value->Release();
    }

    std::wstring key;
    IUnknown* value;  // one reference held; may be null
    std::wstring extra;
    bool has_extra;  // false when the third text was null
    std::int32_t flags;
};

class SuperCollection final : public ISuperCollection, public RefCounted {
public:
    SuperCollection() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this,
                              {{kIID_ISuperCollection, static_cast<ISuperCollection*>(this)},
                               {kIID_INamedCollection, static_cast<INamedCollection*>(this)}},
                              iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    HRESULT GetCount(std::int32_t* count) override { return ReportCount(entries_.size(), count); }

    // S_OK with a null *item for an entry added without a value.
    HRESULT GetItem(std::int32_t index, IUnknown** item) override {
        const HRESULT hr = ClearIndexedOut(item, index, entries_.size());
        if (FAILED(hr)) return hr;
        IUnknown* value = entries_[static_cast<std::size_t>(index)].value;
        if (value) value->AddRef();
        *item = value;
        return S_OK;
    }

    // E_FAIL with *index = -1 for an absent name.
    HRESULT FindName(IString* name, std::int32_t* index) override {
        return FindEntryIndex(entries_, &Entry::key, name, index, E_FAIL);
    }

    HRESULT GetItemName(std::int32_t index, IString** name) override {
        return EntryName(entries_, &Entry::key, index, name);
    }

    HRESULT RemoveItem(std::int32_t index) override {
        if (!IndexInRange(index, entries_.size())) return E_INVALIDARG;
        // Taken out first: the value's release may re-enter this collection.
        Entry removed = std::move(entries_[static_cast<std::size_t>(index)]);
        entries_.erase(entries_.begin() + index);
        return S_OK;
    }

    HRESULT Clear() override {
        std::vector<Entry> removed = std::exchange(entries_, {});
        return S_OK;
    }

    // S_OK with a null *extra for an entry added without a third text.
    HRESULT GetItemExtra(std::int32_t index, IString** extra) override {
        const HRESULT hr = ClearIndexedOut(extra, index, entries_.size());
        if (FAILED(hr)) return hr;
        const Entry& entry = entries_[static_cast<std::size_t>(index)];
        if (!entry.has_extra) return S_OK;
        return NewString(entry.extra, extra);
    }

    HRESULT GetItemFlags(std::int32_t index, std::int32_t* flags) override {
        const HRESULT hr = ClearIndexedOut(flags, index, entries_.size());
        if (FAILED(hr)) return hr;
        *flags = entries_[static_cast<std::size_t>(index)].flags;
        return S_OK;
    }

    HRESULT Unused9() override { return E_NOTIMPL; }
    HRESULT Unused10() override { return E_NOTIMPL; }
    HRESULT Unused11() override { return E_NOTIMPL; }
    HRESULT Unused12() override { return E_NOTIMPL; }
    HRESULT Unused13() override { return E_NOTIMPL; }

    // The key is required; value and third text may be null. Texts are copied.
    HRESULT Add(IString* key, IUnknown* value, IString* extra, std::int32_t flags) override {
        std::wstring_view key_text;
        HRESULT hr = ReadString(key, &key_text);
        if (FAILED(hr)) return hr;
        std::wstring_view extra_text;
        hr = ReadOptionalString(extra, &extra_text);
        if (FAILED(hr)) return hr;
        if (entries_.size() >= kMaxEntries) return E_OUTOFMEMORY;
        return NoThrow([&] {
            Entry entry(std::wstring(key_text), nullptr, std::wstring(extra_text), extra != nullptr, flags);
            entries_.push_back(std::move(entry));
            if (value) value->AddRef();
            entries_.back().value = value;
            return S_OK;
        });
    }

private:
    ~SuperCollection() override = default;

    // Counts and indexes are 32-bit.
    static constexpr std::size_t kMaxEntries = 0x7FFFFFFF;

    std::vector<Entry> entries_;
};

}  // namespace

HRESULT CreateSuperCollection(const IID& iid, void** out) { return CreateObject<SuperCollection>(iid, out); }

}  // namespace kit
