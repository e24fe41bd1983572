// What the registry check tells a person about a registry file.
#include "hostkit/registry_diagnosis.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "hostkit/faulty_file_system.h"
#include "hostkit/scratch_folder.h"

namespace kit {
namespace {

void Put(const std::string& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

struct TextCase {
    std::string_view file;
    int line;               // -1: no problem
    std::string_view what;  // expected text when line >= 0
};

const TextCase kTextCases[] = {
    {"", -1, ""},
    {"[Calendar]\nSDAdam=1\nSDGeneric = 1721424\n", -1, ""},
    {"\xEF\xBB\xBF[Calendar]\r\nSDAdam=-3\r\nSDGeneric=+12.5\r\n", -1, ""},
    {"[Calendar]\nSDAdam=#1F\nSDGeneric=#FFFFFFFF\n", -1, ""},
    {"[Calendar]\nSDAdam=.5\nSDGeneric=7.\n", -1, ""},
    {"[Calendar]\nSDAdam=9223372036854775807\n", -1, ""},
    {"[Other]\nSDAdam=not a number\n", -1, ""},
    {"[Calendar]\nSDAdamX=junk\n", -1, ""},
    {"# comment\n; other\n\n[Calendar]\nSDAdam=abc\n", 5,
     "the value \"abc\" of SDAdam in [Calendar] is not a number, so 1 January of year 1 of that calendar is day 0"},
    {"[Calendar]\nSDGeneric=\n", 2,
     "the value \"\" of SDGeneric in [Calendar] is empty, so 1 January of year 1 of that calendar is day 0"},
    {"[Calendar]\nSDAdam=+12.5abc\n", 2,
     "the value \"+12.5abc\" of SDAdam in [Calendar] is not wholly a number: only \"+12.5\" is read, the rest is "
     "ignored"},
    {"[Calendar]\nSDAdam=1e5\n", 2,
     "the value \"1e5\" of SDAdam in [Calendar] is not wholly a number: only \"1\" is read, the rest is ignored"},
    {"[Calendar]\nSDAdam=\\s5\n", 2,
     "the value \" 5\" of SDAdam in [Calendar] is not a number, so 1 January of year 1 of that calendar is day 0"},
    {"[Calendar]\nSDAdam=#1G\n", 2,
     "the value \"#1G\" of SDAdam in [Calendar] is not a number: after \"#\" only hexadecimal digits may follow"},
    {"[Calendar]\nSDAdam=#\n", 2,
     "the value \"#\" of SDAdam in [Calendar] is not a number: after \"#\" only hexadecimal digits may follow"},
    {"[Calendar]\nSDAdam=#123456789\n", 2,
     "the value \"#123456789\" of SDAdam in [Calendar] has more hexadecimal digits than 32 bits hold, so it wraps "
     "around"},
    {"[Calendar]\nSDAdam=9223372036854775808\n", 2,
     "the value \"9223372036854775808\" of SDAdam in [Calendar] is too large a number to be read"},
    {"[Calendar]\nSDAdam=3.2.1\n", 2,
     "the value \"3.2.1\" of SDAdam in [Calendar] is not wholly a number: only \"3.2\" is read, the rest is ignored"},
    // The later of two entries is the one every query reads.
    {"[Calendar]\nSDAdam=bad\nSDAdam=2\n", -1, ""},
    {"[Calendar]\nSDAdam=2\n[Other]\n[Calendar]\nSDAdam=x\n", 5,
     "the value \"x\" of SDAdam in [Calendar] is not a number, so 1 January of year 1 of that calendar is day 0"},
    // Control characters in a value are shown escaped, and long values cut.
    {"[Calendar]\nSDAdam=\\t\x1B]0;title\\n\n", 2,
     "the value \"\\x09\\x1b]0;title\\x0a\" of SDAdam in [Calendar] is not a number, so 1 January of year 1 of that "
     "calendar is day 0"},
    {"[Calendar]\nSDAdam=1234567890123456789012345678901234567890123456789x\n", 2,
     "the value \"1234567890123456789012345678901234567890...\" of SDAdam in [Calendar] is not wholly a number: only "
     "\"1234567890123456789012345678901234567890...\" is read, the rest is ignored"},
    // Malformed lines come first: the whole file is then unreadable to every query.
    {"[Calendar]\nSDAdam=abc\nno equals sign\n", 3,
     "the line is not a [section] header, a key=value entry or a comment"},
    {"[Calendar\n", 1, "the line is not a [section] header, a key=value entry or a comment"},
    {"[Calendar]\nSDAdam=\\q\n", 2, "the line's value has an unknown escape (known: \\\\ \\n \\r \\t \\s \\0)"},
    {std::string_view("[Calendar]\nSDAdam=1\0\n", 21), 2, "the line holds a NUL byte"},
    {"[Calendar]\n\nSDAdam=\xC3\x28\n", 3, "the line is not valid UTF-8 text"},
};

TEST(DiagnoseRegistryText, Table) {
    for (const TextCase& c : kTextCases) {
        const std::optional<RegistryProblem> problem = DiagnoseRegistryText("reg.ini", c.file);
        if (c.line < 0) {
            EXPECT_FALSE(problem.has_value()) << c.file << " -> " << problem->what;
            continue;
        }
        ASSERT_TRUE(problem.has_value()) << c.file;
        EXPECT_EQ(problem->file, "reg.ini");
        EXPECT_EQ(problem->line, c.line) << c.file;
        EXPECT_EQ(problem->what, c.what) << c.file;
    }
}

TEST(DiagnoseRegistry, MissingFileAndNoPathAreNoProblem) {
    ScratchFolder folder;
    EXPECT_FALSE(DiagnoseRegistry("").has_value());
    EXPECT_FALSE(DiagnoseRegistry(folder.File("absent.ini")).has_value());
    EXPECT_FALSE(DiagnoseRegistry(folder.File("no/folder/reg.ini")).has_value());
}

TEST(DiagnoseRegistry, MalformedValueInAFileNamesItsLine) {
    ScratchFolder folder;
    Put(folder.File("reg.ini"), "[Calendar]\nSDGeneric=1721424\nSDAdam=12x\n");
    const std::optional<RegistryProblem> problem = DiagnoseRegistry(folder.File("reg.ini"));
    ASSERT_TRUE(problem.has_value());
    EXPECT_EQ(problem->file, folder.File("reg.ini"));
    EXPECT_EQ(problem->line, 3);
}

TEST(DiagnoseRegistry, WhatStandsInTheFilesPlaceIsNamed) {
    ScratchFolder folder;
    ASSERT_EQ(::mkdir(folder.File("folder.ini").c_str(), 0755), 0);
    ASSERT_EQ(::mkfifo(folder.File("fifo.ini").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("loop.ini", folder.File("loop.ini").c_str()), 0);
    Put(folder.File("big.ini"), std::string((1u << 20) + 1, '#'));
    struct Case {
        const char* name;
        const char* what;
    };
    const Case cases[] = {
        {"folder.ini", "a folder stands in the file's place"},
        {"fifo.ini", "a device, FIFO or socket stands in the file's place"},
        {"loop.ini", "the file cannot be read: Too many levels of symbolic links"},
        {"big.ini", "the file is larger than the registry's limit of 1 MiB"},
    };
    for (const Case& c : cases) {
        const std::optional<RegistryProblem> problem = DiagnoseRegistry(folder.File(c.name));
        ASSERT_TRUE(problem.has_value()) << c.name;
        EXPECT_EQ(problem->line, 0) << c.name;
        EXPECT_EQ(problem->what, c.what) << c.name;
    }
}

TEST(DiagnoseRegistry, FileOfExactlyTheLimitIsChecked) {
    ScratchFolder folder;
    std::string file(1u << 20, '#');
    file[0] = ';';
    Put(folder.File("reg.ini"), file);
    EXPECT_FALSE(DiagnoseRegistry(folder.File("reg.ini")).has_value());
}

}  // namespace
}  // namespace kit
