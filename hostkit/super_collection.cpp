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

    HRESULT GetCount(std::int32_t* count) override {
        if (!count) return E_POINTER;
        *count = static_cast<std::int32_t>(entries_.size());
        return S_OK;
    }

    // S_OK with a null *item for an entry added without a value.
    HRESULT GetItem(std::int32_t index, IUnknown** item) override {
        if (!item) return E_POINTER;
        *item = nullptr;
        if (!InRange(index)) return E_INVALIDARG;
        IUnknown* value = entries_[static_cast<std::size_t>(index)].value;
        if (value) value->AddRef();
        *item = value;
        return S_OK;
    }

    // E_FAIL with *index = -1 for an absent name.
    HRESULT FindName(IString* name, std::int32_t* index) override {
        if (!index) return E_POINTER;
        *index = -1;
        std::wstring_view text;
        const HRESULT hr = ReadString(name, &text);
        if (FAILED(hr)) return hr;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (entries_[i].key == text) {
                *index = static_cast<std::int32_t>(i);
                return S_OK;
            }
        }
        return E_FAIL;
    }

    HRESULT GetItemName(std::int32_t index, IString** name) override {
        if (!name) return E_POINTER;
        *name = nullptr;
        if (!InRange(index)) return E_INVALIDARG;
        return NewString(entries_[static_cast<std::size_t>(index)].key, name);
    }

    HRESULT RemoveItem(std::int32_t index) override {
        if (!InRange(index)) return E_INVALIDARG;
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
        if (!extra) return E_POINTER;
        *extra = nullptr;
        if (!InRange(index)) return E_INVALIDARG;
        const Entry& entry = entries_[static_cast<std::size_t>(index)];
        if (!entry.has_extra) return S_OK;
        return NewString(entry.extra, extra);
    }

    HRESULT GetItemFlags(std::int32_t index, std::int32_t* flags) override {
        if (!flags) return E_POINTER;
        *flags = 0;
        if (!InRange(index)) return E_INVALIDARG;
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
        if (extra) {
            hr = ReadString(extra, &extra_text);
            if (FAILED(hr)) return hr;
        }
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

    bool InRange(std::int32_t index) const { return index >= 0 && static_cast<std::size_t>(index) < entries_.size(); }

    std::vector<Entry> entries_;
};

}  // namespace

HRESULT CreateSuperCollection(const IID& iid, void** out) { return CreateObject<SuperCollection>(iid, out); }

}  // namespace kit
