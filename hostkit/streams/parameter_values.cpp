#include "hostkit/streams/parameter_values.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace kit::streams {

namespace {

static_assert(std::endian::native == std::endian::little, "byte forms are written in host order");

void PutBytes(const void* source, std::size_t size, std::string& out) {
    out.append(static_cast<const char*>(source), size);
}

// Number texts are ASCII; anything else cannot be one.
bool NarrowAscii(std::wstring_view text, std::string& out) {
    out.clear();
    for (const wchar_t unit : text) {
        if (unit < 0x20 || unit > 0x7E) return false;
        out.push_back(static_cast<char>(unit));
    }
    return true;
}

}  // namespace

std::wstring ValueText(const ParameterEntry& entry) {
    char buffer[64];
    std::to_chars_result result{buffer, std::errc{}};
    switch (entry.kind) {
        case ParameterKind::kEmpty:
            return {};
        case ParameterKind::kText:
            return entry.text;
        case ParameterKind::kInteger:
            result = std::to_chars(buffer, buffer + sizeof buffer, entry.integer);
            break;
        case ParameterKind::kDouble:
            result = std::to_chars(buffer, buffer + sizeof buffer, entry.number);
            break;
    }
    return std::wstring(buffer, result.ptr);
}

bool ValueFromText(ParameterKind kind, std::wstring_view text, ParameterEntry* entry) {
    entry->kind = kind;
    if (kind == ParameterKind::kEmpty) return text.empty();
    if (kind == ParameterKind::kText) {
        entry->text.assign(text);
        return true;
    }
    std::string narrow;
    if (text.empty() || !NarrowAscii(text, narrow)) return false;
    const char* end = narrow.data() + narrow.size();
    std::from_chars_result result{};
    if (kind == ParameterKind::kInteger) {
        result = std::from_chars(narrow.data(), end, entry->integer);
    } else {
        result = std::from_chars(narrow.data(), end, entry->number);
    }
    return result.ec == std::errc{} && result.ptr == end;
}

std::string ValueBytes(const ParameterEntry& entry) {
    std::string bytes(1, static_cast<char>(entry.kind));
    switch (entry.kind) {
        case ParameterKind::kEmpty:
            break;
        case ParameterKind::kInteger:
            PutBytes(&entry.integer, sizeof entry.integer, bytes);
            break;
        case ParameterKind::kDouble:
            PutBytes(&entry.number, sizeof entry.number, bytes);
            break;
        case ParameterKind::kText:
            PutBytes(entry.text.data(), entry.text.size() * sizeof(wchar_t), bytes);
            break;
    }
    return bytes;
}

bool ValueFromBytes(std::string_view bytes, ParameterEntry* entry) {
    if (bytes.empty()) return false;
    const auto kind = static_cast<ParameterKind>(static_cast<std::uint8_t>(bytes[0]));
    bytes.remove_prefix(1);
    switch (kind) {
        case ParameterKind::kEmpty:
            if (!bytes.empty()) return false;
            break;
        case ParameterKind::kInteger:
            if (bytes.size() != sizeof entry->integer) return false;
            std::memcpy(&entry->integer, bytes.data(), sizeof entry->integer);
            break;
        case ParameterKind::kDouble:
            if (bytes.size() != sizeof entry->number) return false;
            std::memcpy(&entry->number, bytes.data(), sizeof entry->number);
            break;
        case ParameterKind::kText:
            if (bytes.size() % sizeof(wchar_t) != 0) return false;
            entry->text.resize(bytes.size() / sizeof(wchar_t));
            std::memcpy(entry->text.data(), bytes.data(), bytes.size());
            break;
        default:
            return false;
    }
    entry->kind = kind;
    return true;
}

}  // namespace kit::streams
