// Describes a view as "<offset into the scanned text>:<characters>", so one
// string pins both what a scanner handed back and where it points. A view
// still pointing at the sentinel reads "S:<characters>"; any other pointer
// reads "?:<characters>".
#pragma once

#include <cstdint>
#include <cwchar>
#include <string>

#include "framework/ref_string.h"

inline constexpr wchar_t kSentinelText[] = L"sentinel";

inline CREFString Sentinel() { return CREFString(kSentinelText, 8); }

inline CREFString View(const wchar_t* text) { return CREFString(text, static_cast<int>(std::wcslen(text))); }

inline std::wstring Describe(const tagREFString& view, const wchar_t* base) {
    const std::wstring characters =
        view.length > 0 ? std::wstring(view.string, static_cast<std::size_t>(view.length)) : std::wstring();
    const auto at = reinterpret_cast<std::uintptr_t>(view.string);
    const auto begin = reinterpret_cast<std::uintptr_t>(base);
    const auto end = reinterpret_cast<std::uintptr_t>(base + std::wcslen(base));
    if (at == reinterpret_cast<std::uintptr_t>(kSentinelText)) return L"S:" + characters;
    if (at >= begin && at <= end) return std::to_wstring((at - begin) / sizeof(wchar_t)) + L":" + characters;
    return L"?:" + characters;
}
