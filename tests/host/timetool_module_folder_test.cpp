// Where the built timetool finds its module folder, run as a user runs it:
// CALENDAR_MODULE_DIR, else _binlinux beside the executable, else the
// installed module folder reached from the executable's folder; --version
// names the folder and the rule.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "temporary_folder.h"
#include "tool_runner.h"

namespace {

namespace fs = std::filesystem;

// Empty is "not set" for timetool, so a variable in the test's own
// environment cannot leak in.
constexpr const char* kNoVariable = "CALENDAR_MODULE_DIR=";
const std::string kNoFile = "cannot open shared object file: No such file or directory";

std::string BuildModuleFolder() { return fs::canonical(CAL_BUILD_DIR).string() + "/_binlinux"; }

// A copy of timetool at <root>/bin/timetool, as an installation lays it out;
// the module folder is added by the tests that need it.
class InstalledLayout {
public:
    InstalledLayout() : root_(fs::canonical(folder_.path()).string()) {
        fs::create_directories(root_ + "/bin");
        fs::copy_file(TIMETOOL_PATH, timetool());
    }
    const std::string& root() const { return root_; }
    std::string timetool() const { return root_ + "/bin/timetool"; }
    std::string moduleFolder() const { return root_ + "/" INSTALLED_MODULE_DIR; }
    void LinkModuleFolder() const {
        fs::create_directories(fs::path(moduleFolder()).parent_path());
        fs::create_directory_symlink(BuildModuleFolder(), moduleFolder());
    }

private:
    TemporaryFolder folder_;
    std::string root_;
};

std::string SecondLine(const std::string& text) {
    const std::size_t first = text.find('\n');
    return first == std::string::npos ? "" : text.substr(first + 1);
}

TEST(TimetoolVersion, FirstLineIsTheVersionAndTheCommit) {
    const ToolRun run = RunProgram(TIMETOOL_PATH, {"--version"}, "", {kNoVariable});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const std::string first = run.out.substr(0, run.out.find('\n'));
    const std::string version = std::string("timetool ") + PROJECT_VERSION;
    EXPECT_TRUE(first == version || first.starts_with(version + " (commit ")) << first;
}

TEST(TimetoolModuleFolder, BuildTreeFolderBesideTheExecutable) {
    const ToolRun run = RunProgram(TIMETOOL_PATH, {"--version"}, "", {kNoVariable});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(SecondLine(run.out), "module folder: " + BuildModuleFolder() + " (build tree)\n");
}

TEST(TimetoolModuleFolder, InstalledFolderReachedFromTheExecutable) {
    const InstalledLayout layout;
    layout.LinkModuleFolder();
    const ToolRun version = RunProgram(layout.timetool(), {"--version"}, "", {kNoVariable});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(SecondLine(version.out), "module folder: " + layout.moduleFolder() + " (installed tree)\n");

    const ToolRun convert =
        RunProgram(layout.timetool(), {"convert", "2024-06-21", "--to", "julian"}, "", {kNoVariable, kNoRegistry});
    EXPECT_EQ(convert.status, 0) << convert.err;
    EXPECT_NE(convert.out.find("Julian         8 June 2024\n"), std::string::npos) << convert.out;
}

TEST(TimetoolModuleFolder, BuildTreeFolderWinsOverTheInstalledOne) {
    const InstalledLayout layout;
    layout.LinkModuleFolder();
    fs::create_directory_symlink(BuildModuleFolder(), layout.root() + "/bin/_binlinux");
    const ToolRun run = RunProgram(layout.timetool(), {"--version"}, "", {kNoVariable});
    EXPECT_EQ(SecondLine(run.out), "module folder: " + layout.root() + "/bin/_binlinux (build tree)\n");
}

TEST(TimetoolModuleFolder, VariableOverridesBothAndIsTakenAsGiven) {
    const InstalledLayout layout;
    layout.LinkModuleFolder();
    const TemporaryFolder empty;
    const std::string variable = std::string("CALENDAR_MODULE_DIR=") + empty.path();
    const ToolRun version = RunProgram(layout.timetool(), {"--version"}, "", {variable});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(SecondLine(version.out), "module folder: " + empty.path() + " (set by CALENDAR_MODULE_DIR)\n");

    const ToolRun convert = RunProgram(layout.timetool(), {"convert", "2024-06-21"}, "", {variable, kNoRegistry});
    EXPECT_EQ(convert.status, 1);
    EXPECT_EQ(convert.out, "");
    EXPECT_EQ(convert.err, "timetool: cannot load module " + empty.path() + "/Calendar.so (" + kNoFile + ")\n");
}

TEST(TimetoolModuleFolder, VariableServesATimetoolWithNoModuleAround) {
    const InstalledLayout layout;
    const ToolRun convert = RunProgram(layout.timetool(), {"convert", "2024-06-21", "--to", "julian"}, "",
                                       {std::string("CALENDAR_MODULE_DIR=") + BuildModuleFolder(), kNoRegistry});
    EXPECT_EQ(convert.status, 0) << convert.err;
    EXPECT_NE(convert.out.find("Julian         8 June 2024\n"), std::string::npos) << convert.out;
}

TEST(TimetoolModuleFolder, NoModuleAnywhereNamesTheFoldersLookedIn) {
    const InstalledLayout layout;
    const ToolRun version = RunProgram(layout.timetool(), {"--version"}, "", {kNoVariable});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(SecondLine(version.out), "module folder: " + layout.root() + "/bin/_binlinux (no module beside the " +
                                           "executable nor in " + layout.moduleFolder() + ")\n");

    const ToolRun convert = RunProgram(layout.timetool(), {"convert", "2024-06-21"}, "", {kNoVariable, kNoRegistry});
    EXPECT_EQ(convert.status, 1);
    EXPECT_EQ(convert.err,
              "timetool: cannot load module " + layout.root() + "/bin/_binlinux/Calendar.so (" + kNoFile + ")\n");
}

}  // namespace
