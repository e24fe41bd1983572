// Counted wide strings of literal text, their lengths taken from the literal.
#pragma once

#include <cstddef>
#include <cstdint>

#include "com_types.h"

// The view of a wide string literal, without its terminating zero.
template <std::size_t N>
constexpr tagREFString CountedText(const wchar_t (&text)[N]) noexcept {
    static_assert(N >= 1);
    return tagREFString{static_cast<std::int32_t>(N - 1), text};
}
