// Finding the module folder: the environment variable first, then the
// candidates in order, relative ones from the executable's folder.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "module_host.h"
#include "temporary_folder.h"

namespace {

using calendar_module::FindModuleFolder;
using calendar_module::ModuleFolder;

constexpr const char* kVariable = "HOST_HELPER_TEST_MODULE_DIR";
std::string BuildFolder() { return std::string(CAL_BUILD_DIR) + "/_binlinux"; }

class FindModuleFolderTest : public testing::Test {
protected:
    void SetUp() override { unsetenv(kVariable); }
    void TearDown() override { unsetenv(kVariable); }
};

TEST(ExecutableFolder, IsTheFolderOfTheRunningBinary) {
    EXPECT_EQ(std::filesystem::canonical(calendar_module::ExecutableFolder()),
              std::filesystem::canonical(TEST_BINARY_FOLDER));
}

TEST_F(FindModuleFolderTest, VariableWinsEvenWhenItHoldsNoModule) {
    const TemporaryFolder folder;
    setenv(kVariable, folder.path().c_str(), 1);
    const ModuleFolder found = FindModuleFolder(kVariable, {BuildFolder()});
    EXPECT_EQ(found.path, folder.path());
    EXPECT_EQ(found.source, kVariable);
    EXPECT_FALSE(found.found);
}

TEST_F(FindModuleFolderTest, VariableHoldingTheModuleIsFound) {
    setenv(kVariable, BuildFolder().c_str(), 1);
    const ModuleFolder found = FindModuleFolder(kVariable, {"nowhere"});
    EXPECT_EQ(found.path, BuildFolder());
    EXPECT_EQ(found.source, kVariable);
    EXPECT_TRUE(found.found);
}

TEST_F(FindModuleFolderTest, EmptyVariableIsPassedOver) {
    setenv(kVariable, "", 1);
    const ModuleFolder found = FindModuleFolder(kVariable, {BuildFolder()});
    EXPECT_EQ(found.path, BuildFolder());
    EXPECT_EQ(found.source, "fixed path");
    EXPECT_TRUE(found.found);
}

TEST_F(FindModuleFolderTest, FirstCandidateHoldingTheModuleIsTaken) {
    const TemporaryFolder empty;
    const ModuleFolder found = FindModuleFolder(kVariable, {empty.path(), BuildFolder(), "../../_binlinux"});
    EXPECT_EQ(found.path, BuildFolder());
    EXPECT_TRUE(found.found);
}

TEST_F(FindModuleFolderTest, RelativeCandidateStartsAtTheExecutable) {
    const ModuleFolder found = FindModuleFolder(kVariable, {"no-such-folder", MODULE_DIR_FROM_TEST});
    EXPECT_EQ(found.path, calendar_module::ExecutableFolder() + "/" + MODULE_DIR_FROM_TEST);
    EXPECT_EQ(found.source, "relative to the executable");
    EXPECT_TRUE(found.found);
    EXPECT_EQ(std::filesystem::canonical(found.path), std::filesystem::canonical(BuildFolder()));
}

TEST_F(FindModuleFolderTest, NothingFoundGivesTheFirstCandidate) {
    const ModuleFolder found = FindModuleFolder(kVariable, {"first", "second"});
    EXPECT_EQ(found.path, calendar_module::ExecutableFolder() + "/first");
    EXPECT_EQ(found.source, "relative to the executable");
    EXPECT_FALSE(found.found);
}

TEST_F(FindModuleFolderTest, NoVariableNameReadsNoEnvironment) {
    setenv(kVariable, "/", 1);
    const ModuleFolder found = FindModuleFolder(nullptr, {BuildFolder()});
    EXPECT_EQ(found.path, BuildFolder());
    EXPECT_TRUE(found.found);
}

}  // namespace
