// Line scanners: front lines, reverse lines and tails of a view.
#include "framework/ref_string.h"

namespace {

void SetView(CREFString* view, const wchar_t* start, std::int32_t length) {
    if (view) {
        view->string = start;
        view->length = length;
    }
}

void SetEmpty(CREFString* view) {
    if (view) view->length = 0;
}

bool IsLineBreak(wchar_t c) { return c == L'\n' || c == L'\r'; }

// Index of the last occurrence of c in [0, length), or -1.
std::int32_t FindLast(const wchar_t* text, std::int32_t length, wchar_t c) {
    for (std::int32_t k = length - 1; k >= 0; --k) {
        if (text[k] == c) return k;
    }
    return -1;
}

// The piece after the delimiter at k goes to out; with cut, `view` keeps the
// piece before it. Without skipDelimiter the delimiter belongs to both pieces,
// which callers rely on.
void CutAtLastDelimiter(CREFString& view, CREFString* out, std::int32_t k, bool cut, bool skipDelimiter) {
    const std::int32_t from = skipDelimiter ? k + 1 : k;
    SetView(out, view.string + from, view.length - from);
    if (cut) view.length = skipDelimiter ? k : k + 1;
}

}  // namespace

std::int32_t CREFString::GetLine(CREFString* out, bool advance, wchar_t delimiter, bool dropDelimiter) {
    if (length < 1) {
        SetEmpty(out);
        return E_FAIL;
    }
    std::int32_t taken = length;  // [1, length]; the delimiter is counted in
    for (std::int32_t i = 0; i < length; ++i) {
        if (string[i] == delimiter) {
            taken = i + 1;
            break;
        }
    }
    const bool endsWithDelimiter = string[taken - 1] == delimiter;
    SetView(out, string, dropDelimiter && endsWithDelimiter ? taken - 1 : taken);
    // Without advance the last line reports failure although out is filled;
    // callers use this to tell whether more lines follow.
    if (!advance) return length > taken ? S_OK : E_FAIL;
    string += taken;
    length -= taken;
    return length == 0 ? S_FALSE : S_OK;
}

std::int32_t CREFString::GetLineCRLF(CREFString* out, bool dropTerminator, bool advance) {
    if (length < 1) {
        SetEmpty(out);
        return E_FAIL;
    }
    std::int32_t i = 0;  // [0, length]: first line break, or length
    while (i < length && !IsLineBreak(string[i])) ++i;
    std::int32_t taken = length;
    if (i < length) {
        taken = i + 1;
        // CR LF and LF CR are one break; LF LF and CR CR are two.
        if (i + 1 < length && string[i + 1] != string[i] && IsLineBreak(string[i + 1])) taken = i + 2;
    }
    SetView(out, string, dropTerminator ? i : taken);
    if (!advance) return S_OK;
    string += taken;
    length -= taken;
    return length == 0 ? S_FALSE : S_OK;
}

std::int32_t CREFString::GetReverseLine(CREFString* out, wchar_t delimiter, bool advance, bool skipDelimiter) {
    if (length < 1) {
        SetView(out, string, 0);
        return E_FAIL;
    }
    const std::int32_t k = FindLast(string, length, delimiter);
    if (k < 0) {
        SetView(out, string, 0);
        return E_FAIL;
    }
    SetView(out, string, k);
    // A delimiter in first position leaves no head: a failure, `this` kept.
    if (k == 0) return E_FAIL;
    if (advance) {
        const std::int32_t from = skipDelimiter ? k + 1 : k;
        string += from;
        length -= from;
    }
    return S_OK;
}

std::int32_t CREFString::GetLineRight(CREFString* out, wchar_t delimiter, bool cut, bool skipDelimiter,
                                      bool wholeIfMissing) {
    if (length < 1) return E_FAIL;
    const std::int32_t k = FindLast(string, length, delimiter);
    if (k < 0) {
        if (!wholeIfMissing) {
            SetEmpty(out);
            return E_FAIL;
        }
        SetView(out, string, length);
        if (cut) length = 0;
        return S_OK;
    }
    CutAtLastDelimiter(*this, out, k, cut, skipDelimiter);
    return S_OK;
}

std::int32_t CREFString::Crop(CREFString* out, wchar_t delimiter, bool cut, bool skipDelimiter) {
    const std::int32_t k = length < 1 ? -1 : FindLast(string, length, delimiter);
    if (k < 0) {
        SetEmpty(out);
        return E_FAIL;
    }
    CutAtLastDelimiter(*this, out, k, cut, skipDelimiter);
    return S_OK;
}
