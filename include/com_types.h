// Basic types shared by the module and its hosts: result codes, interface
// identifiers, counted wide strings, IUnknown and the SmartPtr holder.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

using HRESULT = std::int32_t;

// Success is any value that is not negative.
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;  // success with a qualification
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001u);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002u);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003u);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);

constexpr bool SUCCEEDED(HRESULT hr) { return hr >= 0; }
constexpr bool FAILED(HRESULT hr) { return hr < 0; }

static_assert(sizeof(wchar_t) == 4, "wide characters are UTF-32 code units");

// 16-byte interface identifier in the GUID layout (little-endian words).
struct IID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
static_assert(sizeof(IID) == 16);

// Identity is equality of the record read as four 32-bit words, first word first.
inline bool IsEqualIID(const IID& a, const IID& b) {
    std::uint32_t wa[4];
    std::uint32_t wb[4];
    std::memcpy(wa, &a, sizeof wa);
    std::memcpy(wb, &b, sizeof wb);
    return wa[0] == wb[0] && wa[1] == wb[1] && wa[2] == wb[2] && wa[3] == wb[3];
}
inline bool operator==(const IID& a, const IID& b) { return IsEqualIID(a, b); }

inline constexpr IID IID_NULL{0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
// {00000000-0000-0000-C000-000000000046}; fixed, not derived from the name.
inline constexpr IID IID_IUnknown{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// The framework's name-to-identifier rule: up to 25 characters, 5 bits each,
// case-insensitive. Hosts use this to compute the identifiers the module
// computes at load; the module's exported __IIDOfc gives the same record.
constexpr IID IIDFromName(std::string_view name) {
    std::uint8_t bytes[16] = {};
    const std::size_t n = name.size() > 25 ? 25 : name.size();
    std::size_t byte = 0;  // [0, 15]
    unsigned bit = 0;      // [0, 7]
    for (std::size_t i = 0; i < n; ++i) {
        const auto c = static_cast<signed char>(name[i]);
        unsigned v = 27;  // every unmapped character, "5".."9" and "_" included
        if (c >= 'A' && c <= 'Z') {
            v = static_cast<unsigned>(c - 0x40);
        } else if (c >= 'a' && c <= 'z') {
            v = static_cast<unsigned>(c - 0x60);
        } else if (c >= '0' && c <= '4') {
            v = static_cast<unsigned>(c - 0x14);  // 28..32; "4" is six bits wide on purpose
        }
        const unsigned unit = v << bit;  // merged into the 16-bit unit at `byte`
        bytes[byte] = static_cast<std::uint8_t>(bytes[byte] | (unit & 0xFFu));
        if (byte + 1 < 16) {
            bytes[byte + 1] = static_cast<std::uint8_t>(bytes[byte + 1] | ((unit >> 8) & 0xFFu));
        }
        bit += 5;
        if (bit > 7) {
            bit -= 8;
            ++byte;
        }
    }
    IID iid{};
    iid.Data1 = static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
                static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
    iid.Data2 = static_cast<std::uint16_t>(bytes[4] | bytes[5] << 8);
    iid.Data3 = static_cast<std::uint16_t>(bytes[6] | bytes[7] << 8);
    for (int i = 0; i < 8; ++i) iid.Data4[i] = bytes[8 + i];
    return iid;
}

// Counted wide string: a view, never owning its characters. A length of 0 or
// less designates no characters; the text need not be terminated.
struct tagREFString {
    std::int32_t length;
    const wchar_t* string;
};

// Base of every interface. Interfaces have no virtual destructor: objects die
// through Release only.
struct IUnknown {
    virtual HRESULT QueryInterface(const IID& iid, void** out) = 0;
    virtual std::int32_t AddRef() = 0;
    virtual std::int32_t Release() = 0;

protected:
    ~IUnknown() = default;
};

// The framework's creation function: outer object (ignored), requested
// interface, result slot.
using CREATEFUNCTION = HRESULT (*)(void* outer, const IID* iid, void** out);

// Holds one reference to an interface; releases it when destroyed or overwritten.
template <class T>
class SmartPtr {
public:
    SmartPtr() = default;
    // Adopts a reference the caller already owns.
    explicit SmartPtr(T* adopted) : p_(adopted) {}
    SmartPtr(const SmartPtr& other) : p_(other.p_) {
        if (p_) p_->AddRef();
    }
    SmartPtr(SmartPtr&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
    SmartPtr& operator=(const SmartPtr& other) {
        if (other.p_) other.p_->AddRef();
        reset(other.p_);
        return *this;
    }
    SmartPtr& operator=(SmartPtr&& other) noexcept {
        if (this != &other) reset(std::exchange(other.p_, nullptr));
        return *this;
    }
    // The slot is cleared before the old reference is released, so a release
    // that re-enters sees an empty holder.
    ~SmartPtr() { reset(); }

    // Replaces the held pointer with an adopted one (no AddRef).
    void reset(T* adopted = nullptr) {
        T* old = std::exchange(p_, adopted);
        if (old) old->Release();
    }
    // Address of an empty slot for an out-argument; drops any held reference first.
    T** put() {
        reset();
        return &p_;
    }
    void** put_void() { return reinterpret_cast<void**>(put()); }
    T* detach() { return std::exchange(p_, nullptr); }
    T* get() const { return p_; }
    T* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }

private:
    T* p_ = nullptr;
};
