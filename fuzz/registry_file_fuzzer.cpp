// The host kit's registry file reader, editor and diagnosis on fuzzed files,
// sections, keys and values. Checked: a lookup, an edit and the diagnosis
// agree on whether the file is malformed (the diagnosis then names a line),
// and an edit of a writable name reads back as exactly the value
// written (or as absent after a removal) while every other lookup is kept.
#include <cstdint>
#include <optional>
#include <string>

#include "fuzz/fuzz_input.h"
#include "hostkit/registry_diagnosis.h"
#include "hostkit/registry_format.h"
#include "hostkit/utf8.h"

// Layout: three bytes with the lengths of section, key and value (0 to 15
// each; a top bit on the value's byte asks for a removal), the three texts,
// then the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using kit::RegistryEdit;
    using kit::RegistryStatus;
    fuzz::ByteReader in(data, size);
    const std::uint8_t sectionLength = in.Byte() % 16;
    const std::uint8_t keyLength = in.Byte() % 16;
    const std::uint8_t valueByte = in.Byte();
    const std::string section(in.Bytes(sectionLength));
    const std::string key(in.Bytes(keyLength));
    const std::string value(in.Bytes(valueByte % 16));
    const bool removal = valueByte & 0x80;
    const fuzz::ExactBytes file(in.Rest());

    std::string found;
    const RegistryStatus status = kit::FindRegistryValue(file.view(), section, key, &found);
    std::string edited;
    const RegistryEdit edit = kit::EditRegistry(file.view(), section, key, removal ? nullptr : &value, &edited);
    const std::optional<kit::RegistryProblem> problem = kit::DiagnoseRegistryText("fuzz.ini", file.view());
    if (status == RegistryStatus::kMalformed) {
        fuzz::Require(edit == RegistryEdit::kMalformed, "an edit refuses a file the lookup calls malformed");
        fuzz::Require(problem.has_value(), "the diagnosis finds a problem in a malformed file");
        fuzz::Require(problem->line > 0 || file.view().size() > kit::kMaxRegistryBytes, "the diagnosis names a line");
        return 0;
    }
    if (problem.has_value()) {
        fuzz::Require(problem->line > 0 && !problem->what.empty(),
                      "a problem in a readable file has a line and a text");
    }
    // The kit hands the editor names and values converted from wide text, so
    // always UTF-8; other bytes make a file its own reader refuses.
    const bool utf8 = kit::IsValidUtf8(section) && kit::IsValidUtf8(key) && kit::IsValidUtf8(value);
    if (edit != RegistryEdit::kEdited || !utf8 || !kit::IsWritableSection(section) || !kit::IsWritableKey(key)) {
        return 0;
    }

    std::string readBack;
    const RegistryStatus after = kit::FindRegistryValue(edited, section, key, &readBack);
    if (removal) {
        fuzz::Require(after == RegistryStatus::kAbsent, "a removed key is absent");
    } else {
        fuzz::Require(after == RegistryStatus::kFound && readBack == value, "an edited key reads back exactly");
    }
    // Another key of the same section reads the same before and after.
    const std::string other = key + "x";
    std::string otherBefore;
    std::string otherAfter;
    const RegistryStatus statusBefore = kit::FindRegistryValue(file.view(), section, other, &otherBefore);
    const RegistryStatus statusAfter = kit::FindRegistryValue(edited, section, other, &otherAfter);
    fuzz::Require(statusBefore == statusAfter && otherBefore == otherAfter, "an edit keeps other keys");
    return 0;
}
