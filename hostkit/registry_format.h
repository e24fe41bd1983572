// The registry file format, as pure functions over the file's bytes.
//
// The file is UTF-8 (an initial byte-order mark is skipped), at most
// kMaxRegistryBytes long, without NUL bytes. Lines end with "\n" (a "\r"
// before it is ignored). Leading spaces and tabs of a line are ignored; then:
//   empty                 blank line
//   "#..." or ";..."      comment (only as a whole line; "#" inside a value is text)
//   "[name]"              starts section `name` (the text between the first "["
//                         and the last "]"; spaces or tabs may follow the "]")
//   "key=value"           an entry of the current section; the key loses trailing
//                         spaces and tabs, the value loses leading ones, and the
//                         value's escapes \\ \n \r \t \s (space) \0 are decoded
// Anything else (no "=", an empty key, an unknown escape, a header without
// its "]") makes the whole file malformed. Entries before the first header
// belong to the section with the empty name, also written "[]". Names are
// compared exactly (case matters); of two entries with the same key in the
// same section the later one wins.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

inline constexpr std::size_t kMaxRegistryBytes = std::size_t{1} << 20;

enum class RegistryLineKind { kBlank, kComment, kSection, kEntry, kMalformed };

struct RegistryLine {
    RegistryLineKind kind = RegistryLineKind::kMalformed;
    std::string_view name;   // section name or key
    std::string_view value;  // an entry's value as written (escapes not decoded)
};

// Classifies one line, given without its "\n".
RegistryLine ParseRegistryLine(std::string_view line);

// Decodes a value's escapes; false for an unknown or unfinished escape.
bool UnescapeRegistryValue(std::string_view written, std::string* value);
// Appends the written form of a value; every value survives a round trip.
void EscapeRegistryValue(std::string_view value, std::string* written);

// Names the writer can express: a section without line breaks or NUL; a
// key that is not empty, has no "=", line break or NUL, does not start with
// a space, tab, "#", ";" or "[", and does not end with a space or tab.
bool IsWritableSection(std::string_view section);
bool IsWritableKey(std::string_view key);

enum class RegistryStatus { kFound, kAbsent, kMalformed };

// Looks a value up. The whole file is checked, so a malformed file is
// reported whatever is asked.
RegistryStatus FindRegistryValue(std::string_view file, std::string_view section, std::string_view key,
                                 std::string* value);

enum class RegistryEdit { kEdited, kUnchanged, kMalformed, kTooLarge };

// The file with key set to *value in section, or removed when value is null.
// Other lines (comments included) are kept as they are. A new key goes after
// the last line of its section's last block, a new section to the end.
// Earlier duplicates of the key in the section are dropped.
RegistryEdit EditRegistry(std::string_view file, std::string_view section, std::string_view key,
                          const std::string* value, std::string* edited);

}  // namespace kit
