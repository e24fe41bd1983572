// Every scanner of CREFString on fuzzed text with fuzzed delimiters and
// flags, one operation after another on the same view. Checked: every
// output and the scanned view stay inside the text, failures leave the view
// as it was, and GetLine with advance consumes exactly the line it returned
// plus its delimiter.
#include <cstdint>

#include "framework/ref_string.h"
#include "fuzz/fuzz_input.h"

namespace {

constexpr int kOperations = 10;
constexpr std::int32_t kFailed = static_cast<std::int32_t>(E_FAIL);

struct Scan {
    const fuzz::ExactWide& text;
    CREFString view;

    bool Inside(const CREFString& piece) const { return text.Holds(piece.string, piece.length); }
    void RequireInside(const CREFString& piece, const char* what) const { fuzz::Require(Inside(piece), what); }
};

void CheckGetLine(Scan& scan, fuzz::ByteReader& in) {
    const wchar_t delimiter = fuzz::WideFromByte(in.Byte());
    const std::uint8_t flags = in.Byte();
    const bool advance = flags & 1;
    const bool dropDelimiter = flags & 2;
    const CREFString before = scan.view;
    CREFString out(scan.text.data(), 0);
    const std::int32_t result = scan.view.GetLine(&out, advance, delimiter, dropDelimiter);
    scan.RequireInside(out, "GetLine output inside the text");
    if (!advance || result == kFailed) {
        fuzz::Require(scan.view.string == before.string && scan.view.length == before.length,
                      "GetLine without advance or on failure keeps the view");
        return;
    }
    fuzz::Require(result == S_OK || result == S_FALSE, "GetLine with advance gives 0 or 1");
    fuzz::Require(out.string == before.string, "GetLine's line starts at the view");
    const std::int32_t consumed = before.length - scan.view.length;
    fuzz::Require(consumed >= 1 && consumed <= before.length, "GetLine consumes a part of the view");
    fuzz::Require(scan.view.string == before.string + consumed, "GetLine advances by what it consumed");
    fuzz::Require((result == S_FALSE) == (scan.view.length == 0), "GetLine gives 1 exactly when nothing is left");
    const bool delimited = before.string[consumed - 1] == delimiter;
    fuzz::Require(delimited || consumed == before.length, "GetLine stops only after a delimiter");
    const std::int32_t dropped = dropDelimiter && delimited ? 1 : 0;
    fuzz::Require(out.length + dropped == consumed, "GetLine consumes its line plus the delimiter");
    for (std::int32_t i = 0; i + 1 < consumed; ++i) {
        fuzz::Require(before.string[i] != delimiter, "GetLine stops at the first delimiter");
    }
}

void CheckGetLineCRLF(Scan& scan, fuzz::ByteReader& in) {
    const std::uint8_t flags = in.Byte();
    const CREFString before = scan.view;
    CREFString out(scan.text.data(), 0);
    const std::int32_t result = scan.view.GetLineCRLF(flags & 4 ? nullptr : &out, flags & 1, flags & 2);
    scan.RequireInside(out, "GetLineCRLF output inside the text");
    scan.RequireInside(scan.view, "GetLineCRLF view inside the text");
    if (result == kFailed) fuzz::Require(before.length < 1, "GetLineCRLF fails only on an empty view");
}

void CheckReverseLine(Scan& scan, fuzz::ByteReader& in) {
    const wchar_t delimiter = fuzz::WideFromByte(in.Byte());
    const std::uint8_t flags = in.Byte();
    const CREFString before = scan.view;
    CREFString out(scan.text.data(), 0);
    const std::int32_t result = scan.view.GetReverseLine(flags & 4 ? nullptr : &out, delimiter, flags & 1, flags & 2);
    scan.RequireInside(out, "GetReverseLine output inside the text");
    scan.RequireInside(scan.view, "GetReverseLine view inside the text");
    if (result == kFailed) {
        fuzz::Require(scan.view.string == before.string && scan.view.length == before.length,
                      "GetReverseLine failure keeps the view");
    }
}

void CheckLineRight(Scan& scan, fuzz::ByteReader& in) {
    const wchar_t delimiter = fuzz::WideFromByte(in.Byte());
    const std::uint8_t flags = in.Byte();
    CREFString out(scan.text.data(), 0);
    scan.view.GetLineRight(flags & 8 ? nullptr : &out, delimiter, flags & 1, flags & 2, flags & 4);
    scan.RequireInside(out, "GetLineRight output inside the text");
    scan.RequireInside(scan.view, "GetLineRight view inside the text");
}

void CheckCrop(Scan& scan, fuzz::ByteReader& in) {
    const wchar_t delimiter = fuzz::WideFromByte(in.Byte());
    const std::uint8_t flags = in.Byte();
    CREFString out(scan.text.data(), 0);
    scan.view.Crop(flags & 4 ? nullptr : &out, delimiter, flags & 1, flags & 2);
    scan.RequireInside(out, "Crop output inside the text");
    scan.RequireInside(scan.view, "Crop view inside the text");
}

// A set of 0 to 3 characters in a block of its own exact size.
fuzz::ExactWide CharacterSet(fuzz::ByteReader& in) { return fuzz::ExactWide(in.Bytes(in.Byte() % 4)); }

void CheckSplit(Scan& scan, fuzz::ByteReader& in) {
    const fuzz::ExactWide separators = CharacterSet(in);
    const std::int32_t stopAtControl = in.Byte() & 1;
    const CREFString before = scan.view;
    CREFString head(scan.text.data(), 0);
    CREFString tail(scan.text.data(), 0);
    scan.view.Split(&head, &tail, CREFString(separators.data(), separators.length()), stopAtControl);
    scan.RequireInside(head, "Split head inside the text");
    scan.RequireInside(tail, "Split tail inside the text");
    fuzz::Require(scan.view.string == before.string && scan.view.length == before.length, "Split keeps the view");
}

void CheckFirstWord(Scan& scan, fuzz::ByteReader& in) {
    const std::uint8_t flags = in.Byte();
    const CREFString before = scan.view;
    CREFString out(scan.text.data(), 0);
    const std::int32_t result = scan.view.GetFirstWord(flags & 2 ? nullptr : &out, flags & 1);
    scan.RequireInside(out, "GetFirstWord output inside the text");
    scan.RequireInside(scan.view, "GetFirstWord view inside the text");
    if (before.length >= 0) fuzz::Require(scan.view.length >= 0, "GetFirstWord leaves a non-negative length");
    if (result == kFailed) {
        fuzz::Require(scan.view.string == before.string && scan.view.length == before.length,
                      "GetFirstWord failure keeps the view");
    }
}

void CheckGetWord(Scan& scan, fuzz::ByteReader& in) {
    const std::uint8_t flags = in.Byte();
    const fuzz::ExactWide delimiters = CharacterSet(in);
    const CREFString before = scan.view;
    CREFString out(scan.text.data(), 0);
    const std::int32_t result =
        scan.view.GetWord(flags & 2 ? nullptr : &out, flags & 1, CREFString(delimiters.data(), delimiters.length()));
    scan.RequireInside(out, "GetWord output inside the text");
    scan.RequireInside(scan.view, "GetWord view inside the text");
    if (result != kFailed) fuzz::Require(result >= 0 && result <= before.length, "GetWord count within the view");
}

void CheckContains(Scan& scan, fuzz::ByteReader& in) {
    const fuzz::ExactWide pattern = CharacterSet(in);
    const std::int32_t result = scan.view.Contains(CREFString(pattern.data(), pattern.length()));
    if (result != kFailed) fuzz::Require(result >= 0 && result < scan.view.length, "Contains index within the view");
}

void CheckContainsChar(Scan& scan, fuzz::ByteReader& in) {
    const fuzz::ExactWide set = CharacterSet(in);
    const std::int32_t result = scan.view.ContainsChar(CREFString(set.data(), set.length()));
    if (result != kFailed) {
        fuzz::Require(result >= 0 && result < scan.view.length, "ContainsChar index within the view");
    }
}

using Check = void (*)(Scan&, fuzz::ByteReader&);
constexpr Check kChecks[] = {CheckGetLine, CheckGetLineCRLF, CheckReverseLine, CheckLineRight, CheckCrop,
                             CheckSplit,   CheckFirstWord,   CheckGetWord,     CheckContains,  CheckContainsChar};

}  // namespace

// Layout: one byte with the text's length (the top bit asks for a negative
// length on an empty block), the text, then per operation a selector byte
// and its parameters.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ByteReader in(data, size);
    const std::uint8_t header = in.Byte();
    const fuzz::ExactWide text(in.Bytes(header & 0x7F));
    Scan scan{text, CREFString(text.data(), text.length())};
    if (header & 0x80) scan.view.length = -static_cast<std::int32_t>(header & 0x7F) - 1;
    for (int i = 0; i < kOperations && !in.empty(); ++i) {
        kChecks[in.Byte() % std::size(kChecks)](scan, in);
    }
    return 0;
}
