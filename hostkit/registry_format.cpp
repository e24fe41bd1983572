#include "hostkit/registry_format.h"

#include "hostkit/utf8.h"

namespace kit {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view TrimLeft(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size() && IsBlank(text[begin])) ++begin;
    return text.substr(begin);
}

std::string_view TrimRight(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && IsBlank(text[end - 1])) --end;
    return text.substr(0, end);
}

// The file's lines after the byte-order mark; an empty view when the file
// breaks the rules on size, encoding or NUL bytes.
bool FileBody(std::string_view file, std::string_view* body) {
    if (file.size() > kMaxRegistryBytes) return false;
    if (file.find('\0') != std::string_view::npos) return false;
    if (!IsValidUtf8(file)) return false;
    if (file.substr(0, kByteOrderMark.size()) == kByteOrderMark) file.remove_prefix(kByteOrderMark.size());
    *body = file;
    return true;
}

// One line of the body: its text and where the next line starts.
struct LineCursor {
    std::string_view body;
    std::size_t next = 0;  // [0, body.size()]

    bool Next(std::string_view* line, std::size_t* begin) {
        if (next >= body.size()) return false;
        *begin = next;
        const std::size_t newline = body.find('\n', next);
        const std::size_t end = newline == std::string_view::npos ? body.size() : newline;
        *line = body.substr(next, end - next);
        next = newline == std::string_view::npos ? body.size() : newline + 1;
        return true;
    }
};

// Parses a line and checks an entry's escapes; kMalformed when either fails.
RegistryLine CheckedLine(std::string_view text) {
    RegistryLine line = ParseRegistryLine(text);
    if (line.kind == RegistryLineKind::kEntry && !UnescapeRegistryValue(line.value, nullptr)) {
        line.kind = RegistryLineKind::kMalformed;
    }
    return line;
}

void AppendEntry(std::string_view key, const std::string& value, std::string* out) {
    out->append(key);
    out->push_back('=');
    EscapeRegistryValue(value, out);
    out->push_back('\n');
}

}  // namespace

RegistryLine ParseRegistryLine(std::string_view text) {
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    text = TrimLeft(text);
    RegistryLine line;
    if (text.empty()) {
        line.kind = RegistryLineKind::kBlank;
    } else if (text.front() == '#' || text.front() == ';') {
        line.kind = RegistryLineKind::kComment;
    } else if (text.front() == '[') {
        text = TrimRight(text);
        if (text.size() >= 2 && text.back() == ']') {
            line.kind = RegistryLineKind::kSection;
            line.name = text.substr(1, text.size() - 2);
        }
    } else {
        const std::size_t equals = text.find('=');
        const std::string_view key = TrimRight(text.substr(0, equals == std::string_view::npos ? 0 : equals));
        if (!key.empty()) {
            line.kind = RegistryLineKind::kEntry;
            line.name = key;
            line.value = TrimLeft(text.substr(equals + 1));
        }
    }
    return line;
}

bool UnescapeRegistryValue(std::string_view written, std::string* value) {
    for (std::size_t i = 0; i < written.size(); ++i) {
        char c = written[i];
        if (c == '\\') {
            if (++i == written.size()) return false;
            switch (written[i]) {
                case '\\':
                    c = '\\';
                    break;
                case 'n':
                    c = '\n';
                    break;
                case 'r':
                    c = '\r';
                    break;
                case 't':
                    c = '\t';
                    break;
                case 's':
                    c = ' ';
                    break;
                case '0':
                    c = '\0';
                    break;
                default:
                    return false;
            }
        }
        if (value) value->push_back(c);
    }
    return true;
}

void EscapeRegistryValue(std::string_view value, std::string* written) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        switch (c) {
            case '\\':
                written->append("\\\\");
                break;
            case '\n':
                written->append("\\n");
                break;
            case '\r':
                written->append("\\r");
                break;
            case '\0':
                written->append("\\0");
                break;
            // A leading blank would be trimmed on reading.
            case ' ':
                written->append(i == 0 ? "\\s" : " ");
                break;
            case '\t':
                written->append(i == 0 ? "\\t" : "\t");
                break;
            default:
                written->push_back(c);
                break;
        }
    }
}

bool IsWritableSection(std::string_view section) {
    return section.find_first_of(std::string_view("\n\r\0", 3)) == std::string_view::npos;
}

bool IsWritableKey(std::string_view key) {
    if (key.empty() || key.find_first_of(std::string_view("=\n\r\0", 4)) != std::string_view::npos) return false;
    const char first = key.front();
    if (IsBlank(first) || first == '#' || first == ';' || first == '[') return false;
    return !IsBlank(key.back());
}

RegistryStatus FindRegistryValue(std::string_view file, std::string_view section, std::string_view key,
                                 std::string* value) {
    std::string_view body;
    if (!FileBody(file, &body)) return RegistryStatus::kMalformed;
    LineCursor cursor{body};
    std::string_view text;
    std::size_t begin = 0;
    std::string_view current;  // the section of the lines being read; "" before the first header
    std::string_view found;
    bool was_found = false;
    while (cursor.Next(&text, &begin)) {
        const RegistryLine line = CheckedLine(text);
        switch (line.kind) {
            case RegistryLineKind::kMalformed:
                return RegistryStatus::kMalformed;
            case RegistryLineKind::kSection:
                current = line.name;
                break;
            case RegistryLineKind::kEntry:
                if (current == section && line.name == key) {
                    found = line.value;
                    was_found = true;
                }
                break;
            default:
                break;
        }
    }
    if (!was_found) return RegistryStatus::kAbsent;
    value->clear();
    UnescapeRegistryValue(found, value);
    return RegistryStatus::kFound;
}

RegistryEdit EditRegistry(std::string_view file, std::string_view section, std::string_view key,
                          const std::string* value, std::string* edited) {
    std::string_view body;
    if (!FileBody(file, &body)) return RegistryEdit::kMalformed;
    const std::string_view mark = file.substr(0, file.size() - body.size());

    // First pass: where the key is defined last, and the last header or entry
    // line of the section (a new key goes after it).
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t last_definition = kNone;
    std::size_t last_section_line = kNone;
    std::size_t definitions = 0;
    {
        LineCursor cursor{body};
        std::string_view text;
        std::size_t begin = 0;
        std::string_view current;
        while (cursor.Next(&text, &begin)) {
            const RegistryLine line = CheckedLine(text);
            if (line.kind == RegistryLineKind::kMalformed) return RegistryEdit::kMalformed;
            if (line.kind == RegistryLineKind::kSection) current = line.name;
            if (current != section) continue;
            if (line.kind == RegistryLineKind::kSection || line.kind == RegistryLineKind::kEntry) {
                last_section_line = begin;
            }
            if (line.kind == RegistryLineKind::kEntry && line.name == key) {
                last_definition = begin;
                ++definitions;
            }
        }
    }
    if (!value && definitions == 0) return RegistryEdit::kUnchanged;

    // Second pass: copy, dropping every definition of the key and writing the
    // new one in place of the last or after the section's last line.
    std::string out(mark);
    LineCursor cursor{body};
    std::string_view text;
    std::size_t begin = 0;
    std::string_view current;
    bool written = false;
    while (cursor.Next(&text, &begin)) {
        const RegistryLine line = ParseRegistryLine(text);
        if (line.kind == RegistryLineKind::kSection) current = line.name;
        const bool is_definition = line.kind == RegistryLineKind::kEntry && current == section && line.name == key;
        if (is_definition) {
            if (begin == last_definition && value) {
                AppendEntry(key, *value, &out);
                written = true;
            }
            continue;
        }
        out.append(body.substr(begin, cursor.next - begin));
        if (value && !written && last_definition == kNone && begin == last_section_line) {
            if (out.back() != '\n') out.push_back('\n');
            AppendEntry(key, *value, &out);
            written = true;
        }
    }
    if (value && !written) {
        if (!out.empty() && out.size() > mark.size()) {
            if (out.back() != '\n') out.push_back('\n');
            out.push_back('\n');
        }
        out.push_back('[');
        out.append(section);
        out.append("]\n");
        AppendEntry(key, *value, &out);
    }
    if (out == file) return RegistryEdit::kUnchanged;
    if (out.size() > kMaxRegistryBytes) return RegistryEdit::kTooLarge;
    *edited = std::move(out);
    return RegistryEdit::kEdited;
}

}  // namespace kit
