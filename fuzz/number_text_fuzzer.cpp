// _IS2Integer and _IS2Double on fuzzed text and bases. Checked: a character
// past the counted length changes nothing (the parsers read only what they are
// given), and both parsers are total (UndefinedBehaviourSanitizer watches the
// arithmetic).
#include <cstdint>
#include <string>

#include "framework/conversions.h"
#include "fuzz/fuzz_input.h"

// Layout: a byte choosing the base (with a few out-of-range ones), then the
// text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ByteReader in(data, size);
    const std::uint8_t baseByte = in.Byte();
    const int base = baseByte < 0xF0 ? baseByte % 40 : -static_cast<int>(baseByte & 0x0F);
    const std::string_view bytes = in.Rest();
    const fuzz::ExactWide text(bytes);
    // The same text with a digit after it, beyond the length given.
    const fuzz::ExactWide longer(std::string(bytes) + '7');

    const int integer = _IS2Integer(CREFString(text.data(), text.length()), base);
    const int integerAgain = _IS2Integer(CREFString(longer.data(), text.length()), base);
    fuzz::Require(integer == integerAgain, "_IS2Integer reads only the counted characters");

    const double number = _IS2Double(CREFString(text.data(), text.length()));
    const double numberAgain = _IS2Double(CREFString(longer.data(), text.length()));
    fuzz::Require(number == numberAgain || (number != number && numberAgain != numberAgain),
                  "_IS2Double reads only the counted characters");
    return 0;
}
