// IEventSourceImpl: the listener table of an event source whose listeners
// answer the interface *piid. T supplies Lock and Unlock (the component's
// error-checking mutex) for registration and removal.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <new>

#include "base/iids.h"
#include "com_types.h"
#include "module_interfaces.h"

template <class T, const IID* piid>
class IEventSourceImpl : public IEventSource {
public:
    IEventSourceImpl(const IEventSourceImpl&) = delete;
    IEventSourceImpl& operator=(const IEventSourceImpl&) = delete;

    // Mode 0 removes a listener; mode 2 replaces the first mode-2 listener;
    // every other mode is stored as given and only reported back.
    HRESULT Advise(IUnknown* listener, std::int32_t mode) override { return Advise(listener, mode, *piid); }

    HRESULT Advise(IUnknown* listener, std::int32_t mode, const IID& iid) override {
        if (mode == kModeRemove) return ClearAdvise(listener);
        if (mode == kModeReplace) {
            if (!listener) return E_POINTER;
            if (ReplaceFirstReplaceable(listener)) return S_OK;
        }
        if (listener) {
            void* answer = nullptr;
            const HRESULT hr = listener->QueryInterface(iid, &answer);
            if (FAILED(hr)) return hr;
            if (answer) static_cast<IUnknown*>(answer)->Release();
        }
        return AddAdvise(listener, mode);
    }

    std::int32_t GetAdviseCount() override { return count.load(std::memory_order_relaxed); }

    // No lock. An index that is negative as a signed value lies outside the
    // table as well.
    HRESULT GetAdviseItem(std::uint32_t index, IUnknown** listener, std::int32_t* mode) override {
        const auto position = static_cast<std::int32_t>(index);
        if (position < 0 || position >= count.load(std::memory_order_relaxed)) return E_FAIL;
        const AdviseEntry* entry = table[position].get();
        if (!entry) return E_FAIL;
        if (mode) *mode = entry->mode;
        if (!listener) return S_OK;
        *listener = entry->listener;
        if (!entry->listener) return E_FAIL;
        entry->listener->AddRef();
        return S_OK;
    }

    // Registers `listener` (one reference kept) unless an entry with the same
    // IUnknown identity exists, which gives S_FALSE.
    HRESULT AddAdvise(IUnknown* listener, std::int32_t mode) {
        if (!listener) return E_POINTER;
        Owner().Lock();
        const HRESULT hr = AddUnderLock(listener, mode);
        Owner().Unlock();
        return hr;
    }

    // A null listener removes every entry (the slot array is kept); otherwise
    // the first entry with the listener's identity, or E_FAIL when none.
    HRESULT ClearAdvise(IUnknown* listener) {
        if (!listener) {
            if (count.load(std::memory_order_relaxed) == 0) return S_OK;
            Owner().Lock();
            ReleaseAllUnderLock();
            Owner().Unlock();
            return S_OK;
        }
        Owner().Lock();
        const HRESULT hr = RemoveUnderLock(listener);
        Owner().Unlock();
        return hr;
    }

    // Slots allocated in the table (grown 8 at a time).
    std::int32_t GetAdviseCapacity() const { return capacity; }

    // Calls `call(interface)` for every listener answering *piid, in table
    // order. The count is read once; each entry is taken under the lock with
    // a reference of its own and called with the lock released.
    template <class Call>
    void NotifyListeners(Call&& call) {
        const std::int32_t listeners = count.load(std::memory_order_relaxed);
        if (listeners > 0) NotifyEach(listeners, call);
    }

protected:
    IEventSourceImpl() = default;
    // The owner empties the table first (ReleaseAllAdvise) while its mutex
    // still exists; what is left here is freed without locking.
    ~IEventSourceImpl() { ReleaseAllUnderLock(); }

    // Releases every listener once. Called by the owner's destructor before
    // its mutex is destroyed.
    void ReleaseAllAdvise() {
        if (count.load(std::memory_order_relaxed) == 0) return;
        Owner().Lock();
        ReleaseAllUnderLock();
        Owner().Unlock();
    }

    struct AdviseEntry {
        IUnknown* listener;  // one reference held
        std::int32_t mode;   // as given at registration
    };

    // count is atomic only because GetAdviseCount and the firing read it
    // without the lock; every write happens under it.
    std::atomic<std::int32_t> count{0};  // entries in use, [0, capacity]
    std::int32_t capacity = 0;           // slots allocated, a multiple of 8
    // Slots at and beyond count are null.
    std::unique_ptr<std::unique_ptr<AdviseEntry>[]> table;

private:
    // Firing with no listener (the common case) stays a read and a test in
    // the caller; the walk is out of line, which the append benchmark shows
    // pays.
    template <class Call>
    [[gnu::noinline]] void NotifyEach(std::int32_t listeners, Call call) {
        for (std::int32_t i = 0; i < listeners; ++i) {
            Owner().Lock();
            IUnknown* listener = i < capacity && table[i] ? table[i]->listener : nullptr;
            if (listener) listener->AddRef();
            Owner().Unlock();
            if (!listener) continue;
            void* answer = nullptr;
            if (SUCCEEDED(listener->QueryInterface(*piid, &answer)) && answer) {
                call(answer);
                static_cast<IUnknown*>(answer)->Release();
            }
            listener->Release();
        }
    }

    static constexpr std::int32_t kModeRemove = 0;
    static constexpr std::int32_t kModeReplace = 2;
    static constexpr std::int32_t kGrowth = 8;

    T& Owner() { return *static_cast<T*>(this); }

    // The IUnknown identity of an object, with one reference, or null.
    static IUnknown* Identity(IUnknown* object) {
        void* identity = nullptr;
        if (FAILED(object->QueryInterface(IID_IUnknown, &identity))) return nullptr;
        return static_cast<IUnknown*>(identity);
    }

    // The position of the first entry with the identity of `listener`, or -1.
    std::int32_t FindUnderLock(IUnknown* identity) {
        const std::int32_t entries = count.load(std::memory_order_relaxed);
        for (std::int32_t i = 0; i < entries; ++i) {
            IUnknown* other = Identity(table[i]->listener);
            const bool same = other == identity;
            if (other) other->Release();
            if (same) return i;
        }
        return -1;
    }

    HRESULT AddUnderLock(IUnknown* listener, std::int32_t mode) {
        IUnknown* identity = Identity(listener);
        if (!identity) return E_NOINTERFACE;
        const bool registered = FindUnderLock(identity) >= 0;
        identity->Release();
        if (registered) return S_FALSE;
        const std::int32_t entries = count.load(std::memory_order_relaxed);
        if (entries == capacity) {
            if (capacity > INT32_MAX - kGrowth) return E_OUTOFMEMORY;
            const std::int32_t grown = capacity + kGrowth;
            std::unique_ptr<std::unique_ptr<AdviseEntry>[]> slots(
                new (std::nothrow) std::unique_ptr<AdviseEntry>[static_cast<std::size_t>(grown)]);
            if (!slots) return E_OUTOFMEMORY;
            for (std::int32_t i = 0; i < entries; ++i) slots[i] = std::move(table[i]);
            table = std::move(slots);
            capacity = grown;
        }
        std::unique_ptr<AdviseEntry> entry(new (std::nothrow) AdviseEntry{listener, mode});
        if (!entry) return E_OUTOFMEMORY;
        listener->AddRef();
        table[entries] = std::move(entry);
        count.store(entries + 1, std::memory_order_relaxed);
        return S_OK;
    }

    // The entry leaves the table before its listener is released, so a
    // release that re-enters the source sees a consistent table.
    HRESULT RemoveUnderLock(IUnknown* listener) {
        IUnknown* identity = Identity(listener);
        if (!identity) return E_FAIL;
        const std::int32_t found = FindUnderLock(identity);
        identity->Release();
        if (found < 0) return E_FAIL;
        std::unique_ptr<AdviseEntry> removed = std::move(table[found]);
        const std::int32_t entries = count.load(std::memory_order_relaxed);
        for (std::int32_t i = found; i + 1 < entries; ++i) table[i] = std::move(table[i + 1]);
        count.store(entries - 1, std::memory_order_relaxed);
        removed->listener->Release();
        return S_OK;
    }

    void ReleaseAllUnderLock() {
        const std::int32_t entries = count.exchange(0, std::memory_order_relaxed);
        for (std::int32_t i = 0; i < entries; ++i) {
            const std::unique_ptr<AdviseEntry> removed = std::move(table[i]);
            removed->listener->Release();
        }
    }

    // Mode 2: the first mode-2 entry takes the new listener; at most one
    // listener is kept this way. No identity or interface check is made.
    bool ReplaceFirstReplaceable(IUnknown* listener) {
        Owner().Lock();
        const std::int32_t entries = count.load(std::memory_order_relaxed);
        bool replaced = false;
        for (std::int32_t i = 0; i < entries && !replaced; ++i) {
            AdviseEntry* entry = table[i].get();
            if (entry->mode != kModeReplace) continue;
            IUnknown* previous = entry->listener;
            entry->listener = listener;
            previous->Release();
            listener->AddRef();
            replaced = true;
        }
        Owner().Unlock();
        return replaced;
    }
};
