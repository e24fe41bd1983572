// Counted wide strings with scanners that cut lines, words and tails off a
// view. Scanners never copy or allocate: every result aliases the scanned
// characters, and advancing only moves the pointer and shrinks the length.
#pragma once

#include <cstdint>

#include "com_types.h"
#include "framework_interfaces.h"

// Result codes of the scanners: S_OK, S_FALSE (nothing is left of the
// advanced view) or E_FAIL. GetWord, Contains and ContainsChar return a count
// or an index instead of S_OK.
class CREFString : public tagREFString {
public:
    CREFString() : tagREFString{0, L""} {}
    CREFString(const tagREFString& view) : tagREFString(view) {}
    CREFString(const wchar_t* text, int length) : tagREFString{length, text} {}

    virtual std::int32_t GetLine(CREFString* out, bool advance, wchar_t delimiter, bool dropDelimiter);
    virtual std::int32_t GetLineCRLF(CREFString* out, bool dropTerminator, bool advance);
    virtual std::int32_t GetReverseLine(CREFString* out, wchar_t delimiter, bool advance, bool skipDelimiter);
    virtual std::int32_t GetLineRight(CREFString* out, wchar_t delimiter, bool cut, bool skipDelimiter,
                                      bool wholeIfMissing);
    virtual std::int32_t Crop(CREFString* out, wchar_t delimiter, bool cut, bool skipDelimiter);
    virtual std::int32_t Split(CREFString* head, CREFString* tail, CREFString separators, int stopAtControl);
    virtual std::int32_t GetFirstWord(CREFString* out, bool advance);
    virtual std::int32_t GetWord(CREFString* out, bool advance, tagREFString delimiters);
    virtual std::int32_t Contains(tagREFString pattern);
    virtual std::int32_t ContainsChar(tagREFString set);

    // Framework services, found once per process (global component
    // collection first, then "./_binlinux/CollectionsEx.so"). Each call returns
    // a new object with one reference owned by the caller, or null when the
    // service can be neither found nor loaded.
    static ICreatableString* CreateString();
    static ISuperCollection* CreateCollection();
    static IVariant* CreateVariant();
};
