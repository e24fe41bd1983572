// Pure rules behind the text of a variant: which texts count as numbers, how
// many decimals a value shows, and which byte a binary format shows.
#pragma once

#include <cstdint>

#include "com_types.h"

enum class NumberText {
    kNone,     // shown as it is
    kInteger,  // formatted again from the variant's integer
    kDecimal,  // formatted again from the variant's floating-point value
};

// An optional '-', then digits with at most one '.', optionally ended by white
// space after at least one digit (anything after it is ignored). Without a '.'
// only texts of at most 9 characters are numbers; longer ones stay as they are.
NumberText ClassifyNumberText(tagREFString text);

// Decimals needed to show value, at most 9.
int AutomaticDecimals(double value);

// Lowest bit of the byte shown by a binary format (any format below -1 other
// than -16): 8 for -22, 16 for -23 and -32, 24 for -24 and -42, else 0.
int BinaryFormatShift(short format);

// Writes the 8 bits of value from `shift` upwards as '1'/'0', most
// significant first, and a terminating zero; buffer holds at least 9.
int WriteBinaryByte(wchar_t* buffer, std::uint32_t value, int shift);
