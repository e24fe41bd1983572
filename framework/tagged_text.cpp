// One element out of XML-like text.
#include "framework/tagged_text.h"

#include "base/counted_text.h"

namespace {

// A search pattern made of a fixed prefix, the element name and a fixed
// suffix, read in place so that no pattern text has to be built.
struct TagPattern {
    tagREFString prefix;
    tagREFString name;
    tagREFString suffix;

    std::int32_t Length() const { return prefix.length + name.length + suffix.length; }
    wchar_t At(std::int32_t j) const {
        if (j < prefix.length) return prefix.string[j];
        j -= prefix.length;
        if (j < name.length) return name.string[j];
        return suffix.string[j - name.length];
    }
};

// Start of the first occurrence of pattern in text, or -1. After a partial
// match the mismatching character is compared with the first pattern
// character only; stored texts are read with this rule.
std::int32_t Find(const tagREFString& text, const TagPattern& pattern) {
    const std::int32_t patternLength = pattern.Length();
    std::int32_t matched = 0;  // [0, patternLength)
    for (std::int32_t i = 0; i < text.length; ++i) {
        if (text.string[i] != pattern.At(matched)) {
            if (matched == 0) continue;
            matched = 0;
            if (text.string[i] != pattern.At(0)) continue;
        }
        if (++matched == patternLength) return i - patternLength + 1;
    }
    return -1;
}

std::int32_t FindChar(const tagREFString& text, wchar_t c) {
    for (std::int32_t i = 0; i < text.length; ++i) {
        if (text.string[i] == c) return i;
    }
    return -1;
}

bool EndsName(wchar_t c) { return c == L'\r' || c == L' ' || c == L'>'; }

// The element name is the tag text up to the first CR, space or '>' after its
// first character; a tag text beginning with one of these names nothing.
tagREFString ElementName(const tagREFString& tag) {
    if (tag.length < 1 || EndsName(tag.string[0])) return {0, tag.string};
    std::int32_t n = 1;
    while (n < tag.length && !EndsName(tag.string[n])) ++n;
    return {n, tag.string};
}

tagREFString After(const tagREFString& text, std::int32_t count) { return {text.length - count, text.string + count}; }

}  // namespace

HRESULT XMLGetTAGGED(CREFString& source, CREFString& tag, CREFString& attributes, CREFString& content, short advance) {
    const tagREFString name = ElementName(tag);
    const TagPattern opening{CountedText(L"<"), name, CountedText(L"")};
    const TagPattern closing{CountedText(L"</"), name, CountedText(L">")};

    content.string = source.string;
    content.length = source.length;
    if (source.length < 1) return E_FAIL;
    const std::int32_t start = Find(source, opening);
    if (start < 0) return E_FAIL;

    // The opening pattern is a prefix test: "<Day" also opens "<Days>".
    const tagREFString afterName = After(source, start + opening.Length());
    static_cast<tagREFString&>(content) = afterName;
    static_cast<tagREFString&>(attributes) = afterName;
    if (afterName.length > 0) {
        const std::int32_t close = FindChar(afterName, L'>');
        if (close >= 0) {
            static_cast<tagREFString&>(content) = After(afterName, close + 1);
            std::int32_t attributeLength = close;
            if (attributeLength > 0 && afterName.string[attributeLength - 1] == L'?') --attributeLength;
            if (attributeLength > 0 && afterName.string[attributeLength - 1] == L'/') --attributeLength;
            attributes.length = attributeLength;
        }
    }

    tagREFString rest = content;
    const std::int32_t end = Find(content, closing);
    if (end >= 0) {
        rest = After(content, end + closing.Length());
        content.length = end;
    } else {
        // A missing closing tag is no failure: the content is empty.
        content.length = 0;
    }
    if (advance != 0) static_cast<tagREFString&>(source) = rest;
    return S_OK;
}
