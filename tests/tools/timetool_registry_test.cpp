// The warning timetool gives when the registry cannot supply the Adam and
// Generic epochs as written, and the module's own fallback, which stays: a
// registry that cannot be read gives the same dates as the value 1 (offset
// 0), an empty value the same as no value at all (offset -1). Registry files
// are made in a temporary folder and named by CALENDAR_REGISTRY.
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tool_runner.h"

namespace {

const std::string kFallback = "; the registry is not read, so Adam and Generic dates use the module's fallback epoch";

std::string Variable(const std::string& path) { return "CALENDAR_REGISTRY=" + path; }

// The Adam and Generic lines of `convert 2024-06-21` with the registry at `path`.
ToolRun ConvertWith(const std::string& path, const std::string& to = "all") {
    return RunTimetool({"convert", "2024-06-21", "--to", to}, "", {Variable(path)});
}

std::string Tail(const std::string& text, std::size_t lines) {
    std::size_t at = text.size();
    for (std::size_t i = 0; i <= lines && at != std::string::npos && at > 0; ++i) at = text.rfind('\n', at - 1);
    return at == std::string::npos ? text : text.substr(at + 1);
}

class TimetoolRegistry : public ::testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& text) {
        const std::string path = dir_.path() + "/" + name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    const std::string& folder() const { return dir_.path(); }

private:
    TempDir dir_;
};

TEST_F(TimetoolRegistry, AMalformedValueIsNamedWithItsFileAndLine) {
    const std::string path = Write("registry.ini", "# epochs\n[Calendar]\nSDGeneric=1\nSDAdam=abc\n");
    const ToolRun run = ConvertWith(path);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "timetool: warning: registry '" + path +
                           "' line 4: the value \"abc\" of SDAdam in [Calendar] is not a number, so 1 January of "
                           "year 1 of that calendar is day 0\n");
    // The module reads no number from it: Adam is where it is without an epoch.
    EXPECT_EQ(Tail(run.out, 2),
              "Adam           24 June 2024 (the module's own calendar)\n"
              "Generic        23 June 2024 (the module's own calendar)\n");
}

TEST_F(TimetoolRegistry, AValuePartlyANumberIsReadAsFarAsItGoes) {
    // "+12.5abc" is read as 12.5: an offset of 11.5 days.
    const std::string path = Write("registry.ini", "[Calendar]\nSDAdam=+12.5abc\n");
    const ToolRun run = ConvertWith(path, "adam");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "timetool: warning: registry '" + path +
                           "' line 2: the value \"+12.5abc\" of SDAdam in [Calendar] is not wholly a number: only "
                           "\"+12.5\" is read, the rest is ignored\n");
    EXPECT_EQ(run.out, RunTimetool({"convert", "2024-06-21", "--to", "adam"}, "",
                                   {Variable(Write("clean.ini", "[Calendar]\nSDAdam=+12.5\n"))})
                           .out);
}

TEST_F(TimetoolRegistry, AMalformedLineMakesTheWholeFileUnread) {
    const std::string path = Write("registry.ini", "[Calendar]\nSDAdam=1721424\nno equals sign here\n");
    const ToolRun run = ConvertWith(path);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "timetool: warning: registry '" + path +
                           "' line 3: the line is not a [section] header, a key=value entry or a comment" + kFallback +
                           "\n");
    // A query that fails gives offset 0, as the value 1 does.
    const ToolRun one = ConvertWith(Write("one.ini", "[Calendar]\nSDAdam=1\nSDGeneric=1\n"));
    EXPECT_EQ(one.err, "");
    EXPECT_EQ(run.out, one.out);
    EXPECT_EQ(Tail(run.out, 2),
              "Adam           23 June 2024 (the module's own calendar)\n"
              "Generic        23 June 2024 (the module's own calendar)\n");
}

TEST_F(TimetoolRegistry, AnUnknownEscapeAndBadTextAreNamed) {
    const std::string escape = Write("escape.ini", "[Calendar]\nSDAdam=1\\q\n");
    EXPECT_EQ(ConvertWith(escape).err, "timetool: warning: registry '" + escape +
                                           "' line 2: the line's value has an unknown escape (known: \\\\ \\n \\r "
                                           "\\t \\s \\0)" +
                                           kFallback + "\n");
    const std::string text = Write("text.ini", "[Calendar]\n\nSDAdam=\xff\n");
    EXPECT_EQ(ConvertWith(text).err,
              "timetool: warning: registry '" + text + "' line 3: the line is not valid UTF-8 text" + kFallback + "\n");
}

TEST_F(TimetoolRegistry, AFolderOrFifoInTheFilesPlaceIsNamed) {
    const std::string path = folder() + "/registry.ini";
    std::filesystem::create_directory(path);
    ToolRun run = ConvertWith(path);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err,
              "timetool: warning: registry '" + path + "': a folder stands in the file's place" + kFallback + "\n");
    EXPECT_EQ(Tail(run.out, 1), "Generic        23 June 2024 (the module's own calendar)\n");

    // Nobody writes to the FIFO: neither the warning nor the module waits.
    const std::string fifo = folder() + "/fifo.ini";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    run = ConvertWith(fifo);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "timetool: warning: registry '" + fifo +
                           "': a device, FIFO or socket stands in the file's place" + kFallback + "\n");
}

TEST_F(TimetoolRegistry, AFileWithoutReadPermissionIsNamed) {
    std::filesystem::permissions(folder(), std::filesystem::perms::all);
    const std::string path = Write("registry.ini", "[Calendar]\nSDAdam=1\n");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const std::vector<std::string> args{"convert", "2024-06-21", "--to", "generic"};
    const ToolRun run =
        geteuid() == 0 ? RunTimetoolAsNobody(args, {Variable(path)}) : RunTimetool(args, "", {Variable(path)});
    if (run.status == 127) GTEST_SKIP() << "timetool cannot run as another user here";
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "timetool: warning: registry '" + path + "': the file cannot be read: Permission denied" +
                           kFallback + "\n");
}

TEST_F(TimetoolRegistry, OneWarningPerRunAndOnlyWhenAdamOrGenericIsUsed) {
    const std::string path = Write("registry.ini", "[Calendar]\nSDAdam=\nSDGeneric=x\n");
    const std::string warning = "timetool: warning: registry '" + path +
                                "' line 2: the value \"\" of SDAdam in [Calendar] is empty, so 1 January of year 1 of "
                                "that calendar is day 0\n";
    const std::vector<std::vector<std::string>> using_ = {
        {"convert", "2024-06-21"},
        {"show", "2024-06-21"},
        {"show", "2024-06-21", "--calendar", "adam"},
        {"show", "2024-06-24", "--from", "generic", "--calendar", "gregorian"},
        {"month", "2024-06", "--calendar", "generic"},
        {"sun", "2024-06-24", "--from", "adam", "--days", "3"},
        {"convert", "2024-06-21", "--to", "generic", "--json"},
    };
    for (const std::vector<std::string>& args : using_) {
        const ToolRun run = RunTimetool(args, "", {Variable(path)});
        EXPECT_EQ(run.status, 0) << args.at(0) << " " << args.back();
        EXPECT_EQ(run.err, warning) << args.at(0) << " " << args.back();
    }
    const std::vector<std::vector<std::string>> notUsing = {
        {"convert", "2024-06-21", "--to", "hebrew"},
        {"show", "2024-06-21", "--calendar", "julian"},
        {"sun", "2024-06-21", "--days", "2"},
        {"moon", "2024-06-21"},
        {"month", "2024-06"},
    };
    for (const std::vector<std::string>& args : notUsing) {
        const ToolRun run = RunTimetool(args, "", {Variable(path)});
        EXPECT_EQ(run.status, 0) << args.at(0) << " " << args.back();
        EXPECT_EQ(run.err, "") << args.at(0) << " " << args.back();
    }
}

TEST_F(TimetoolRegistry, AnEmptyValueKeepsTheModulesFallbackOfMinusOne) {
    // Empty: offset -1, the same as no registry at all.
    const ToolRun empty = ConvertWith(Write("empty.ini", "[Calendar]\nSDAdam=\nSDGeneric=\n"), "adam");
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.out, RunTimetool({"convert", "2024-06-21", "--to", "adam"}).out);
    EXPECT_EQ(Tail(empty.out, 1), "Adam           24 June 2024 (the module's own calendar)\n");
}

TEST_F(TimetoolRegistry, AGoodOrMissingRegistryGivesNoWarning) {
    const std::string good = Write("good.ini",
                                   "; hosts' own sections are left alone\n[Host]\nx=y z\n[Calendar]\n"
                                   "SDAdam=#1F\nSDGeneric = -3.25\n");
    EXPECT_EQ(ConvertWith(good).err, "");
    EXPECT_EQ(ConvertWith(folder() + "/missing/registry.ini").err, "");
}

}  // namespace
