#include "hostkit/registry_format.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using kit::RegistryEdit;
using kit::RegistryLineKind;
using kit::RegistryStatus;

struct LineCase {
    std::string_view line;
    RegistryLineKind kind;
    std::string_view name;
    std::string_view value;
};

TEST(ParseRegistryLine, ClassifiesEveryKindOfLine) {
    const LineCase cases[] = {
        {"", RegistryLineKind::kBlank, "", ""},
        {"   \t", RegistryLineKind::kBlank, "", ""},
        {"\r", RegistryLineKind::kBlank, "", ""},
        {"# note", RegistryLineKind::kComment, "", ""},
        {"  ; note", RegistryLineKind::kComment, "", ""},
        {"[Calendar]", RegistryLineKind::kSection, "Calendar", ""},
        {"  [Calendar]  \t\r", RegistryLineKind::kSection, "Calendar", ""},
        {"[ spaced name ]", RegistryLineKind::kSection, " spaced name ", ""},
        {"[a]b]", RegistryLineKind::kSection, "a]b", ""},
        {"[]", RegistryLineKind::kSection, "", ""},
        {"[Calendar", RegistryLineKind::kMalformed, "", ""},
        {"[", RegistryLineKind::kMalformed, "", ""},
        {"[Calendar] x", RegistryLineKind::kMalformed, "", ""},
        {"SDAdam=1", RegistryLineKind::kEntry, "SDAdam", "1"},
        {"SDAdam = 1 ", RegistryLineKind::kEntry, "SDAdam", "1 "},
        {"  SDAdam\t=\t-3\r", RegistryLineKind::kEntry, "SDAdam", "-3"},
        {"key=", RegistryLineKind::kEntry, "key", ""},
        {"key=a=b", RegistryLineKind::kEntry, "key", "a=b"},
        {"key=#1F", RegistryLineKind::kEntry, "key", "#1F"},
        {"key=x ; not a comment", RegistryLineKind::kEntry, "key", "x ; not a comment"},
        {"two words=v", RegistryLineKind::kEntry, "two words", "v"},
        {"=value", RegistryLineKind::kMalformed, "", ""},
        {"  = value", RegistryLineKind::kMalformed, "", ""},
        {"no equals sign", RegistryLineKind::kMalformed, "", ""},
    };
    for (const LineCase& c : cases) {
        const kit::RegistryLine line = kit::ParseRegistryLine(c.line);
        EXPECT_EQ(line.kind, c.kind) << c.line;
        EXPECT_EQ(line.name, c.name) << c.line;
        EXPECT_EQ(line.value, c.value) << c.line;
    }
}

struct EscapeCase {
    std::string_view value;
    std::string_view written;
};

TEST(EscapeRegistryValue, WritesEscapesThatReadBack) {
    const EscapeCase cases[] = {
        {"plain", "plain"},
        {"", ""},
        {"a\\b", "a\\\\b"},
        {"line\nbreak\r", "line\\nbreak\\r"},
        {" lead", "\\slead"},
        {"\tlead", "\\tlead"},
        {"in side\t", "in side\t"},
        {std::string_view("nul\0x", 5), "nul\\0x"},
        {"#1F", "#1F"},
        {"\xD7\x90", "\xD7\x90"},
    };
    for (const EscapeCase& c : cases) {
        std::string written;
        kit::EscapeRegistryValue(c.value, &written);
        EXPECT_EQ(written, c.written);
        std::string back;
        EXPECT_TRUE(kit::UnescapeRegistryValue(written, &back));
        EXPECT_EQ(back, c.value);
    }
}

TEST(UnescapeRegistryValue, RejectsUnknownAndUnfinishedEscapes) {
    for (const std::string_view bad : {"\\", "a\\", "\\x", "\\N", "\\\\\\"}) {
        std::string out;
        EXPECT_FALSE(kit::UnescapeRegistryValue(bad, &out)) << bad;
    }
    EXPECT_TRUE(kit::UnescapeRegistryValue("\\s\\t", nullptr));
}

TEST(IsWritableKey, RejectsKeysTheFormatCannotExpress) {
    EXPECT_TRUE(kit::IsWritableKey("SDAdam"));
    EXPECT_TRUE(kit::IsWritableKey("two words"));
    EXPECT_TRUE(kit::IsWritableKey("a]#;"));
    const std::string_view bad_keys[] = {"",   " lead", "\tlead", "trail ", "trail\t", "#c",
                                         ";c", "[s",    "a=b",    "a\nb",   "a\rb",    std::string_view("a\0b", 3)};
    for (const std::string_view bad : bad_keys) {
        EXPECT_FALSE(kit::IsWritableKey(bad)) << bad;
    }
}

TEST(IsWritableSection, RejectsOnlyLineBreaksAndNul) {
    EXPECT_TRUE(kit::IsWritableSection(""));
    EXPECT_TRUE(kit::IsWritableSection(" a]b[ "));
    EXPECT_FALSE(kit::IsWritableSection("a\nb"));
    EXPECT_FALSE(kit::IsWritableSection("a\rb"));
    EXPECT_FALSE(kit::IsWritableSection(std::string_view("a\0b", 3)));
}

struct FindCase {
    std::string_view file;
    std::string_view section;
    std::string_view key;
    RegistryStatus status;
    std::string_view value;
};

TEST(FindRegistryValue, LooksUpBySectionAndKey) {
    const std::string_view file =
        "# epochs of the named calendars\n"
        "top=level\n"
        "[Calendar]\n"
        "SDAdam=1\n"
        "SDGeneric = +12.5abc\n"
        "Empty=\n"
        "sdadam=lower\n"
        "\n"
        "[Other]\n"
        "SDAdam=other\n"
        "[Calendar]\n"
        "Late=yes\n";
    const FindCase cases[] = {
        {file, "Calendar", "SDAdam", RegistryStatus::kFound, "1"},
        {file, "Calendar", "SDGeneric", RegistryStatus::kFound, "+12.5abc"},
        {file, "Calendar", "Empty", RegistryStatus::kFound, ""},
        {file, "Calendar", "sdadam", RegistryStatus::kFound, "lower"},
        {file, "Calendar", "Late", RegistryStatus::kFound, "yes"},
        {file, "Other", "SDAdam", RegistryStatus::kFound, "other"},
        {file, "", "top", RegistryStatus::kFound, "level"},
        {file, "calendar", "SDAdam", RegistryStatus::kAbsent, ""},
        {file, "Calendar", "Missing", RegistryStatus::kAbsent, ""},
        {file, "Calendar", "top", RegistryStatus::kAbsent, ""},
        {"", "Calendar", "SDAdam", RegistryStatus::kAbsent, ""},
        {"[Calendar]\r\nSDAdam=5\r\n", "Calendar", "SDAdam", RegistryStatus::kFound, "5"},
        {"[Calendar]\nSDAdam=5", "Calendar", "SDAdam", RegistryStatus::kFound, "5"},
        {"\xEF\xBB\xBF[Calendar]\nSDAdam=7\n", "Calendar", "SDAdam", RegistryStatus::kFound, "7"},
        {"[Calendar]\nSDAdam=1\nSDAdam=2\n", "Calendar", "SDAdam", RegistryStatus::kFound, "2"},
        {"[Calendar]\nSDAdam=\\s5\\n\n", "Calendar", "SDAdam", RegistryStatus::kFound, " 5\n"},
        {"[]\nk=v\n", "", "k", RegistryStatus::kFound, "v"},
        {"[Kalender \xC3\xBC]\nSchl\xC3\xBCssel=\xE2\x82\xAC\n", "Kalender \xC3\xBC", "Schl\xC3\xBCssel",
         RegistryStatus::kFound, "\xE2\x82\xAC"},
    };
    for (const FindCase& c : cases) {
        std::string value = "unchanged";
        EXPECT_EQ(kit::FindRegistryValue(c.file, c.section, c.key, &value), c.status) << c.file;
        if (c.status == RegistryStatus::kFound) {
            EXPECT_EQ(value, c.value) << c.file;
        }
    }
}

TEST(FindRegistryValue, AnyMalformedLineMakesTheWholeFileMalformed) {
    const std::string_view malformed[] = {
        "[Calendar]\nSDAdam=1\nbroken line\n",
        "broken line\n[Calendar]\nSDAdam=1\n",
        "[Calendar\nSDAdam=1\n",
        "[Calendar]\nSDAdam=1\nother=bad\\escape\n",
        "[Calendar]\n=1\n",
        "[Calendar]\nSDAdam=\xFF\n",          // not UTF-8
        "[Calendar]\nSDAdam=\xC0\x80\n",      // overlong form
        "[Calendar]\nSDAdam=\xED\xA0\x80\n",  // surrogate
        std::string_view("[Calendar]\nSDAdam=1\0\n", 20),
    };
    for (const std::string_view file : malformed) {
        std::string value;
        EXPECT_EQ(kit::FindRegistryValue(file, "Calendar", "SDAdam", &value), RegistryStatus::kMalformed) << file;
    }
}

TEST(FindRegistryValue, FileBeyondTheSizeBoundIsMalformed) {
    std::string file = "[Calendar]\nSDAdam=1\n";
    file.append(kit::kMaxRegistryBytes - file.size(), '\n');
    std::string value;
    EXPECT_EQ(kit::FindRegistryValue(file, "Calendar", "SDAdam", &value), RegistryStatus::kFound);
    file.push_back('\n');
    EXPECT_EQ(kit::FindRegistryValue(file, "Calendar", "SDAdam", &value), RegistryStatus::kMalformed);
}

struct EditCase {
    const char* what;
    std::string_view file;
    std::string_view section;
    std::string_view key;
    const char* value;  // null removes
    RegistryEdit result;
    std::string_view edited;
};

TEST(EditRegistry, SetsAndRemovesKeepingEverythingElse) {
    const EditCase cases[] = {
        {"new file", "", "Calendar", "SDAdam", "1", RegistryEdit::kEdited, "[Calendar]\nSDAdam=1\n"},
        {"replace in place", "# c\n[Calendar]\nSDAdam=1\nX=2\n", "Calendar", "SDAdam", "5", RegistryEdit::kEdited,
         "# c\n[Calendar]\nSDAdam=5\nX=2\n"},
        {"same value", "[Calendar]\nSDAdam=1\n", "Calendar", "SDAdam", "1", RegistryEdit::kUnchanged, ""},
        {"add after the section's last entry", "[Calendar]\nA=1\n\n# next\n[Other]\nB=2\n", "Calendar", "C", "3",
         RegistryEdit::kEdited, "[Calendar]\nA=1\nC=3\n\n# next\n[Other]\nB=2\n"},
        {"add to a header-only section", "[Calendar]\n[Other]\n", "Calendar", "C", "3", RegistryEdit::kEdited,
         "[Calendar]\nC=3\n[Other]\n"},
        {"add to the section's last block", "[A]\nx=1\n[B]\n[A]\ny=2\n[C]\n", "A", "z", "3", RegistryEdit::kEdited,
         "[A]\nx=1\n[B]\n[A]\ny=2\nz=3\n[C]\n"},
        {"new section at the end", "[Other]\nB=2\n", "Calendar", "SDAdam", "1", RegistryEdit::kEdited,
         "[Other]\nB=2\n\n[Calendar]\nSDAdam=1\n"},
        {"no final line break", "[Other]\nB=2", "Calendar", "SDAdam", "1", RegistryEdit::kEdited,
         "[Other]\nB=2\n\n[Calendar]\nSDAdam=1\n"},
        {"add after a last line without break", "[Calendar]\nA=1", "Calendar", "B", "2", RegistryEdit::kEdited,
         "[Calendar]\nA=1\nB=2\n"},
        {"remove", "[Calendar]\nSDAdam=1\nX=2\n", "Calendar", "SDAdam", nullptr, RegistryEdit::kEdited,
         "[Calendar]\nX=2\n"},
        {"remove every duplicate", "[Calendar]\nK=1\n[Calendar]\nK=2\n", "Calendar", "K", nullptr,
         RegistryEdit::kEdited, "[Calendar]\n[Calendar]\n"},
        {"set drops earlier duplicates", "[Calendar]\nK=1\nX=0\nK=2\n", "Calendar", "K", "3", RegistryEdit::kEdited,
         "[Calendar]\nX=0\nK=3\n"},
        {"remove absent", "[Calendar]\nX=2\n", "Calendar", "SDAdam", nullptr, RegistryEdit::kUnchanged, ""},
        {"remove from empty", "", "Calendar", "SDAdam", nullptr, RegistryEdit::kUnchanged, ""},
        {"other section untouched", "[Other]\nK=1\n", "Calendar", "K", nullptr, RegistryEdit::kUnchanged, ""},
        {"empty value", "", "Calendar", "K", "", RegistryEdit::kEdited, "[Calendar]\nK=\n"},
        {"escaped value", "", "S", "K", " a\\b\n", RegistryEdit::kEdited, "[S]\nK=\\sa\\\\b\\n\n"},
        {"empty section without header", "", "", "K", "v", RegistryEdit::kEdited, "[]\nK=v\n"},
        {"empty section before headers", "top=1\n[S]\n", "", "K", "v", RegistryEdit::kEdited, "top=1\nK=v\n[S]\n"},
        {"keeps CRLF lines and the mark", "\xEF\xBB\xBF[S]\r\nA=1\r\n", "S", "B", "2", RegistryEdit::kEdited,
         "\xEF\xBB\xBF[S]\r\nA=1\r\nB=2\n"},
        {"malformed file untouched", "[S]\nbroken\n", "S", "K", "v", RegistryEdit::kMalformed, ""},
    };
    for (const EditCase& c : cases) {
        std::string value = c.value ? c.value : "";
        std::string edited = "untouched";
        EXPECT_EQ(kit::EditRegistry(c.file, c.section, c.key, c.value ? &value : nullptr, &edited), c.result) << c.what;
        if (c.result == RegistryEdit::kEdited) {
            EXPECT_EQ(edited, c.edited) << c.what;
            std::string back;
            const RegistryStatus status = kit::FindRegistryValue(edited, c.section, c.key, &back);
            EXPECT_EQ(status, c.value ? RegistryStatus::kFound : RegistryStatus::kAbsent) << c.what;
            if (c.value) {
                EXPECT_EQ(back, value) << c.what;
            }
        } else {
            EXPECT_EQ(edited, "untouched") << c.what;
        }
    }
}

TEST(EditRegistry, RefusesToGrowBeyondTheSizeBound) {
    std::string file = "[S]\n";
    file.append(kit::kMaxRegistryBytes - file.size() - 2, '\n');
    const std::string value = "v";
    std::string edited;
    EXPECT_EQ(kit::EditRegistry(file, "S", "K", &value, &edited), RegistryEdit::kTooLarge);
}

}  // namespace
