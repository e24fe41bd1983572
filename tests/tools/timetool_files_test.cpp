// What `timetool load` accepts: a file holding a Time object's whole
// parameter set with values the Time object takes as they are; and what
// `timetool save` says when the kit refuses a target. Files are
// written by hand in the kit's documented XML and folder forms
// (hostkit/streams/FORMATS.md), the folder form's checksum by Boost's CRC-32.
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <boost/crc.hpp>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tool_runner.h"

namespace {

void WriteFile(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

struct Entry {
    std::string name;
    std::string type;  // integer, double, text, empty
    std::string value;
};

const std::vector<Entry> kSolstice = {{"Day", "integer", "21"},    {"Month", "integer", "6"},
                                      {"Year", "integer", "2024"}, {"Hour", "integer", "17"},
                                      {"Minute", "integer", "54"}, {"Second", "double", "30.5"}};

std::vector<Entry> With(const std::string& name, const std::string& type, const std::string& value) {
    std::vector<Entry> entries = kSolstice;
    for (Entry& entry : entries) {
        if (entry.name == name) entry = {name, type, value};
    }
    return entries;
}

std::vector<Entry> Without(const std::string& name) {
    std::vector<Entry> entries;
    for (const Entry& entry : kSolstice) {
        if (entry.name != name) entries.push_back(entry);
    }
    return entries;
}

std::string ParametersXml(const std::vector<Entry>& entries) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Parameters>";
    for (const Entry& entry : entries) {
        text += "<Parameter><Name>" + entry.name + "</Name><Type>" + entry.type + "</Type><Value>" + entry.value +
                "</Value></Parameter>";
    }
    return text + "</Parameters>";
}

void PutU32(std::string& bytes, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFFu);
}

// The folder form: integer entries only (kind byte 1, int32 little-endian),
// each stored as the value "Parameter:" + name.
std::string ParametersFolder(const std::vector<std::pair<std::string, std::int32_t>>& entries) {
    std::string bytes("KFOLDER\x1A", 8);
    PutU32(bytes, 1);
    PutU32(bytes, static_cast<std::uint32_t>(entries.size()));
    PutU32(bytes, 0);
    for (const auto& [name, value] : entries) {
        const std::string full = "Parameter:" + name;
        PutU32(bytes, static_cast<std::uint32_t>(full.size()));
        for (char c : full) PutU32(bytes, static_cast<unsigned char>(c));
        PutU32(bytes, 5);
        bytes += '\x01';
        PutU32(bytes, static_cast<std::uint32_t>(value));
    }
    boost::crc_32_type crc;
    crc.process_bytes(bytes.data(), bytes.size());
    PutU32(bytes, crc.checksum());
    return bytes;
}

struct RefusedCase {
    std::vector<Entry> entries;
    const char* why;
};

// Writes the bytes to the file, loads it and expects the one-line refusal.
void ExpectLoadRefused(const std::string& file, const std::string& bytes, const std::string& why) {
    SCOPED_TRACE(why);
    WriteFile(file, bytes);
    const ToolRun run = RunTimetool({"load", file});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "timetool: bad FILE '" + file + "': " + why + "\n");
}

TEST(TimetoolLoad, AHandWrittenSetLoadsLikeASavedOne) {
    const TempDir dir;
    const std::string file = dir.path() + "/time.xml";
    WriteFile(file, ParametersXml(kSolstice));
    const ToolRun run = RunTimetool({"load", file});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "File           " + file +
                           " (xml stream)\n"
                           "Stored         Day 21, Month 6, Year 2024, Hour 17, Minute 54, Second 30.5\n"
                           "Loaded         day 21, month 2024, year 0, hour 17, minute 54, second 30.5\n"
                           "               (the Time component reads the stored Year into its month field and "
                           "keeps\n"
                           "               its own year; stored data relies on this)\n");
    EXPECT_EQ(run.err, "");
}

TEST(TimetoolLoad, ASetTheTimeObjectWouldNotTakeAsStoredIsRefused) {
    const RefusedCase cases[] = {
        {{}, "it holds no Time parameter set"},
        {{{"Capacity", "integer", "3"}}, "it holds no Time parameter set"},
        {Without("Second"), "its Time parameter set lacks Second"},
        {Without("Day"), "its Time parameter set lacks Day"},
        {{{"Year", "integer", "2024"}}, "its Time parameter set lacks Day, Month, Hour, Minute and Second"},
        {With("Day", "integer", "70000"), "Day 70000 does not fit the Time object's 16-bit field (-32768 to 32767)"},
        {With("Year", "integer", "-32769"),
         "Year -32769 does not fit the Time object's 16-bit field (-32768 to 32767)"},
        {With("Hour", "double", "17.5"), "Hour 17.5 is not a whole number"},
        {With("Second", "double", "nan"), "Second nan is not a finite number"},
        {With("Second", "double", "inf"), "Second inf is not a finite number"},
        {With("Minute", "double", "-inf"), "Minute -inf is not a finite number"},
        {With("Second", "double", "1e39"), "Second 1e+39 does not fit the Time object's second (a 32-bit float)"},
        {With("Day", "text", "21"), "Day is text, not a number"},
        {With("Month", "empty", ""), "Month is empty, not a number"},
    };
    const TempDir dir;
    const std::string file = dir.path() + "/time.xml";
    for (const RefusedCase& c : cases) ExpectLoadRefused(file, ParametersXml(c.entries), c.why);
}

TEST(TimetoolLoad, WellFormedXmlWithoutAParameterSetIsRefused) {
    const TempDir dir;
    const std::string file = dir.path() + "/time.xml";
    // A bare element, and a date record in the calendar state form, which is
    // not how a Time object saves itself.
    for (const char* text : {"<a/>",
                             "<DATETIME><WeekDay>5</WeekDay><Day>21</Day><Month>6</Month><Year>2024</Year>"
                             "<Hour>17</Hour><Minute>54</Minute><Second>0</Second></DATETIME>"}) {
        SCOPED_TRACE(text);
        ExpectLoadRefused(file, text, "it holds no Time parameter set");
    }
}

TEST(TimetoolLoad, FolderFilesAreCheckedTheSameWay) {
    const TempDir dir;
    const std::string file = dir.path() + "/time.dat";
    WriteFile(file, ParametersFolder(
                        {{"Day", 21}, {"Month", 6}, {"Year", 2024}, {"Hour", 17}, {"Minute", 54}, {"Second", 0}}));
    const ToolRun good = RunTimetool({"load", file});
    EXPECT_EQ(good.status, 0) << good.err;
    EXPECT_EQ(good.out.substr(0, good.out.find("Loaded")),
              "File           " + file +
                  " (folder stream)\n"
                  "Stored         Day 21, Month 6, Year 2024, Hour 17, Minute 54, Second 0\n");

    const struct {
        std::vector<std::pair<std::string, std::int32_t>> entries;
        const char* why;
    } cases[] = {
        {{}, "it holds no Time parameter set"},
        {{{"Day", 21}}, "its Time parameter set lacks Month, Year, Hour, Minute and Second"},
        {{{"Day", 21}, {"Month", 6}, {"Year", 40000}, {"Hour", 17}, {"Minute", 54}, {"Second", 0}},
         "Year 40000 does not fit the Time object's 16-bit field (-32768 to 32767)"},
    };
    for (const auto& c : cases) ExpectLoadRefused(file, ParametersFolder(c.entries), c.why);
}

TEST(TimetoolLoad, TruncatedAndCorruptedFilesAreRefused) {
    const TempDir dir;
    const std::string xml = dir.path() + "/time.xml";
    const std::string text = ParametersXml(kSolstice);
    WriteFile(xml, text.substr(0, text.size() - 5));
    ToolRun run = RunTimetool({"load", xml});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: cannot read FILE '" + xml + "': the file is cut short (0x80070026)\n");

    const std::string dat = dir.path() + "/time.dat";
    const ToolRun saved = RunTimetool({"save", dat, "2024-06-21T17:54"});
    ASSERT_EQ(saved.status, 0) << saved.err;
    std::string bytes;
    {
        std::ifstream in(dat, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    ASSERT_GT(bytes.size(), 40u);
    bytes[30] = static_cast<char>(bytes[30] ^ 0x01);
    WriteFile(dat, bytes);
    run = RunTimetool({"load", dat});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "timetool: cannot read FILE '" + dat + "': the file is not a saved stream of this form (0x8007000D)\n");
    EXPECT_EQ(run.out, "");
}

TEST(TimetoolLoad, OnlyRegularFilesAreRead) {
    const TempDir dir;
    const std::string folder = dir.path() + "/folder.xml";
    std::filesystem::create_directory(folder);
    ToolRun run = RunTimetool({"load", folder});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: bad FILE '" + folder + "': a folder, not a file\n");

    // A FIFO nobody writes to would block a reader forever.
    const std::string fifo = dir.path() + "/fifo.xml";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    run = RunTimetool({"load", fifo});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: bad FILE '" + fifo + "': not a regular file\n");
    EXPECT_EQ(run.out, "");

    // A link to a saved file reads the file.
    const std::string file = dir.path() + "/time.xml";
    const std::string link = dir.path() + "/link.xml";
    WriteFile(file, ParametersXml(kSolstice));
    std::filesystem::create_symlink(file, link);
    run = RunTimetool({"load", link});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Stored         Day 21, Month 6, Year 2024, Hour 17, Minute 54, Second 30.5\n"),
              std::string::npos);

    const std::string dangling = dir.path() + "/dangling.xml";
    std::filesystem::create_symlink(dir.path() + "/nothing.xml", dangling);
    run = RunTimetool({"load", dangling});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: cannot read FILE '" + dangling + "': No such file or directory\n");
}

TEST(TimetoolLoad, AFileWithoutReadPermissionIsRefused) {
    const TempDir dir;
    std::filesystem::permissions(dir.path(), std::filesystem::perms::all);
    const std::string file = dir.path() + "/time.xml";
    WriteFile(file, ParametersXml(kSolstice));
    std::filesystem::permissions(file, std::filesystem::perms::none);
    const std::vector<std::string> args{"load", file};
    const ToolRun run = geteuid() == 0 ? RunTimetoolAsNobody(args, {kNoRegistry}) : RunTimetool(args);
    if (run.status == 127) GTEST_SKIP() << "timetool cannot run as another user here";
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "timetool: cannot read FILE '" + file + "': access denied (0x80070005)\n");
}

TEST(TimetoolSave, ATargetThatIsNoRegularFileIsRefusedAndLeftAlone) {
    const TempDir dir;
    const std::string fifo = dir.path() + "/fifo.xml";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    ToolRun run = RunTimetool({"save", fifo, "2024-06-21"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "timetool: cannot write FILE '" + fifo + "': not a regular file (left as it is) (0x800700DE)\n");
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));

    const std::string folder = dir.path() + "/folder.xml";
    std::filesystem::create_directory(folder);
    run = RunTimetool({"save", folder, "2024-06-21"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: cannot write FILE '" + folder + "': access denied (0x80070005)\n");
    EXPECT_TRUE(std::filesystem::is_directory(folder));

    const std::string loop = dir.path() + "/loop.xml";
    std::filesystem::create_symlink(loop, loop);
    run = RunTimetool({"save", loop, "2024-06-21"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: cannot write FILE '" + loop +
                           "': too many symbolic links, or a circle of them (0x80070781)\n");
}

TEST(TimetoolSave, ALinkStaysALinkAndTheFileKeepsItsMode) {
    const TempDir dir;
    const std::string file = dir.path() + "/time.xml";
    const std::string link = dir.path() + "/link.xml";
    WriteFile(file, "old");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    std::filesystem::create_symlink("time.xml", link);
    const ToolRun run = RunTimetool({"save", link, "2024-06-21T17:54"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(std::filesystem::status(file).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const ToolRun load = RunTimetool({"load", file});
    EXPECT_EQ(load.status, 0) << load.err;
    EXPECT_NE(load.out.find("Stored         Day 21, Month 6, Year 2024, Hour 17, Minute 54, Second 0\n"),
              std::string::npos);
}

}  // namespace
