// The decimal reader for calendar epochs stored in the registry.
#pragma once

namespace cal {

// Optional sign, digits, at most one "."; the first other character ends the
// number, and so does an 18th fraction digit (further digits are ignored).
// Integer digits wrap around 64 bits rather than overflow. Text without
// digits reads as 0.0; a length of 0 or less designates no characters.
double ReadRegistryDecimal(const wchar_t* text, int length) noexcept;

}  // namespace cal
