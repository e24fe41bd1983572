// Word scanners: split points, tokens, delimited words and pattern search.
#include <cwctype>

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

bool InSet(wchar_t c, const tagREFString& set) {
    for (std::int32_t k = 0; k < set.length; ++k) {
        if (set.string[k] == c) return true;
    }
    return false;
}

bool IsDigitAt(const wchar_t* text, std::int32_t length, std::int32_t i) {
    return i < length && std::iswdigit(static_cast<wint_t>(text[i]));
}

bool IsAt(const wchar_t* text, std::int32_t length, std::int32_t i, wchar_t c) { return i < length && text[i] == c; }

std::int32_t SkipDigits(const wchar_t* text, std::int32_t length, std::int32_t i) {
    while (IsDigitAt(text, length, i)) ++i;
    return i;
}

// Length of a number token: optional minus, digits, then a fraction only when
// a digit follows the '.', then an exponent only after a fraction and only
// with an explicit sign ('1e+5' and '1.5e5' stop before the 'e').
std::int32_t NumberLength(const wchar_t* text, std::int32_t length) {
    std::int32_t n = SkipDigits(text, length, IsAt(text, length, 0, L'-') ? 1 : 0);
    if (!IsAt(text, length, n, L'.') || !IsDigitAt(text, length, n + 1)) return n;
    n = SkipDigits(text, length, n + 1);
    const bool exponentMark = IsAt(text, length, n, L'E') || IsAt(text, length, n, L'e');
    const bool exponentSign = IsAt(text, length, n + 1, L'+') || IsAt(text, length, n + 1, L'-');
    if (exponentMark && exponentSign && IsDigitAt(text, length, n + 2)) n = SkipDigits(text, length, n + 2);
    return n;
}

// Length of a quoted token up to (not including) its closing quote. Two
// quotes in a row make a one-character token; an unterminated quote runs to
// the end of the text.
std::int32_t QuotedLength(const wchar_t* text, std::int32_t length) {
    if (length < 2 || text[1] == L'"') return 1;
    for (std::int32_t i = 2; i < length; ++i) {
        if (text[i] == L'"') return i;
    }
    return length;
}

// '_' continues a word although it is punctuation.
std::int32_t WordLength(const wchar_t* text, std::int32_t length) {
    std::int32_t n = 0;
    while (n < length) {
        const auto c = static_cast<wint_t>(text[n]);
        if ((std::iswspace(c) || std::iswpunct(c)) && text[n] != L'_') break;
        ++n;
    }
    return n;
}

std::int32_t TokenLength(const wchar_t* text, std::int32_t length) {
    const wchar_t c = text[0];
    if (c == L'"') return QuotedLength(text, length);
    if (IsDigitAt(text, length, 0) || (c == L'-' && IsDigitAt(text, length, 1))) return NumberLength(text, length);
    // A '-' without a digit is not a one-character token: it falls to the word
    // rule and fails there.
    if (c != L'-' && std::iswpunct(static_cast<wint_t>(c))) return 1;
    return WordLength(text, length);
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): the separators come by value, as callers pass them
std::int32_t CREFString::Split(CREFString* head, CREFString* tail, CREFString separators, int stopAtControl) {
    if (length < 1) {
        SetView(head, string, 0);
        SetEmpty(tail);
        return E_FAIL;
    }
    // An empty separator set never splits, whatever stopAtControl says.
    if (separators.length > 0) {
        for (std::int32_t i = 0; i < length; ++i) {
            const wchar_t c = string[i];
            if ((stopAtControl != 0 && c < 32) || InSet(c, separators)) {
                SetView(head, string, i);
                SetView(tail, string + i, length - i);
                return S_OK;
            }
        }
    }
    SetView(head, string, length);
    SetEmpty(tail);
    return E_FAIL;
}

std::int32_t CREFString::GetFirstWord(CREFString* out, bool advance) {
    if (length < 1) {
        SetEmpty(out);
        return E_FAIL;
    }
    std::int32_t n = TokenLength(string, length);  // [0, length]
    if (n < 1) return E_FAIL;
    if (out) {
        SetView(out, string, n);
        // A quote right after any token is taken as the closing quote of a
        // quoted token, so a word directly followed by '"' loses its first
        // character; stored texts depend on this. Only done when out is given.
        if (n < length && string[n] == L'"') {
            ++out->string;
            --out->length;
            ++n;
        }
    }
    if (advance) {
        string += n;
        length -= n;
    }
    return S_OK;
}

std::int32_t CREFString::GetWord(CREFString* out, bool advance, tagREFString delimiters) {
    if (length < 1) {
        SetEmpty(out);
        return E_FAIL;
    }
    std::int32_t i = 0;
    while (i < length && !InSet(string[i], delimiters)) ++i;
    SetView(out, string, i);
    // The delimiter stays at the front of `this`; the caller skips it.
    if (advance) {
        string += i;
        length -= i;
    }
    return i < length ? i + 1 : 0;
}

std::int32_t CREFString::Contains(tagREFString pattern) {
    if (pattern.length < 1 || length < 1) return E_FAIL;
    std::int32_t matched = 0;  // [0, pattern.length]
    std::int32_t start = 0;    // 0 doubles as "not yet set": a longer match at index 0 reports 1
    for (std::int32_t i = 0; i < length; ++i) {
        if (matched < pattern.length && string[i] == pattern.string[matched]) {
            ++matched;
            if (start == 0) start = i;
        } else if (matched == pattern.length) {
            return start;
        } else {
            // The character that broke a partial match does not start a new one.
            matched = 0;
            start = 0;
        }
    }
    return matched == pattern.length ? start : E_FAIL;
}

std::int32_t CREFString::ContainsChar(tagREFString set) {
    if (set.length < 1 || length < 1) return E_FAIL;
    for (std::int32_t i = 0; i < length; ++i) {
        if (InSet(string[i], set)) return i;
    }
    return E_FAIL;
}
