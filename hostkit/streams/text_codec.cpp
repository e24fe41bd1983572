#include "hostkit/streams/text_codec.h"

namespace kit::streams {

void AppendCodePoint(std::uint32_t code, std::string& out) {
    if (code < 0x80u) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800u) {
        out.push_back(static_cast<char>(0xC0u | (code >> 6)));
        out.push_back(static_cast<char>(0x80u | (code & 0x3Fu)));
    } else if (code < 0x10000u) {
        out.push_back(static_cast<char>(0xE0u | (code >> 12)));
        out.push_back(static_cast<char>(0x80u | ((code >> 6) & 0x3Fu)));
        out.push_back(static_cast<char>(0x80u | (code & 0x3Fu)));
    } else {
        out.push_back(static_cast<char>(0xF0u | (code >> 18)));
        out.push_back(static_cast<char>(0x80u | ((code >> 12) & 0x3Fu)));
        out.push_back(static_cast<char>(0x80u | ((code >> 6) & 0x3Fu)));
        out.push_back(static_cast<char>(0x80u | (code & 0x3Fu)));
    }
}

bool AppendUtf8(std::wstring_view text, std::string& out) {
    for (const wchar_t unit : text) {
        const auto code = static_cast<std::uint32_t>(unit);
        if (!IsScalarValue(code)) return false;
        AppendCodePoint(code, out);
    }
    return true;
}

namespace {

// Lead byte classes: sequence length and the smallest value that length may
// encode (anything below is an overlong form).
struct LeadClass {
    std::uint8_t first;
    std::uint8_t last;
    std::size_t length;
    std::uint32_t payload_mask;
    std::uint32_t minimum;
};
constexpr LeadClass kLeadClasses[] = {
    {0x00, 0x7F, 1, 0x7F, 0x0},
    {0xC2, 0xDF, 2, 0x1F, 0x80},
    {0xE0, 0xEF, 3, 0x0F, 0x800},
    {0xF0, 0xF4, 4, 0x07, 0x10000},
};

}  // namespace

DecodeStep DecodeCodePoint(std::string_view bytes, std::size_t at, std::uint32_t* code, std::size_t* length) {
    const auto lead = static_cast<std::uint8_t>(bytes[at]);
    for (const LeadClass& lead_class : kLeadClasses) {
        if (lead < lead_class.first || lead > lead_class.last) continue;
        std::uint32_t value = lead & lead_class.payload_mask;
        for (std::size_t i = 1; i < lead_class.length; ++i) {
            if (at + i >= bytes.size()) return DecodeStep::kIncomplete;
            const auto next = static_cast<std::uint8_t>(bytes[at + i]);
            if ((next & 0xC0u) != 0x80u) return DecodeStep::kInvalid;
            value = (value << 6) | (next & 0x3Fu);
        }
        if (value < lead_class.minimum || !IsScalarValue(value)) return DecodeStep::kInvalid;
        *code = value;
        *length = lead_class.length;
        return DecodeStep::kOk;
    }
    return DecodeStep::kInvalid;
}

void DecodeUtf8Lenient(std::string_view bytes, std::wstring& out) {
    out.clear();
    out.reserve(bytes.size());
    std::size_t at = 0;
    while (at < bytes.size()) {
        std::uint32_t code = 0;
        std::size_t length = 0;
        if (DecodeCodePoint(bytes, at, &code, &length) == DecodeStep::kOk) {
            out.push_back(static_cast<wchar_t>(code));
            at += length;
        } else {
            out.push_back(L'\xFFFD');
            ++at;
        }
    }
}

}  // namespace kit::streams
