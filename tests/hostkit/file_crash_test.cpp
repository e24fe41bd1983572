// A saver killed at random moments never leaves a torn file: after every kill
// the file holds one complete version, and the temporary files the kills
// left never block the next save.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <thread>

#include "hostkit/file_replace.h"
#include "hostkit/scratch_folder.h"

namespace kit {
namespace {

std::string Content(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Saves the two versions one after the other, starting with `first`, until it
// is killed.
[[noreturn]] void SaveForEver(const std::string& path, const std::string& first, const std::string& second) {
    for (;;) {
        if (!ReplaceFile(path, first).ok()) ::_exit(3);
        if (!ReplaceFile(path, second).ok()) ::_exit(3);
    }
}

TEST(ReplaceFileCrash, KilledSaverLeavesOneCompleteVersion) {
    constexpr int kKills = 200;
    ScratchFolder folder;
    const std::string path = folder.File("state");
    // Two versions of different lengths and content: any mix or cut shows.
    const std::string version_a = std::string(40000, 'a') + "end of A";
    const std::string version_b = std::string(60000, 'b') + "end of B";
    // Kills fall anywhere within about two saves; how long a save takes
    // (mostly flushing to disk) depends on the machine and its load.
    const auto started = std::chrono::steady_clock::now();
    ASSERT_TRUE(ReplaceFile(path, version_a).ok());
    const auto save = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - started);
    const long longest = std::clamp<long>(2 * save.count(), 1000, 40000);

    std::mt19937 random(20240515);  // fixed, so the sequence of delays repeats
    std::uniform_int_distribution<long> delay_us(0, longest);
    int changed = 0;  // kills after which the other version had been saved
    std::string before = version_a;
    for (int kill = 0; kill < kKills; ++kill) {
        const bool holds_a = before == version_a;
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        // The child saves the version the file does not hold first, so a change proves a finished save.
        if (child == 0) SaveForEver(path, holds_a ? version_b : version_a, holds_a ? version_a : version_b);
        std::this_thread::sleep_for(std::chrono::microseconds(delay_us(random)));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        // A saver that failed on its own would exit 3 instead of being killed.
        ASSERT_TRUE(WIFSIGNALED(status)) << "kill " << kill << " status " << status;
        const std::string content = Content(path);
        ASSERT_TRUE(content == version_a || content == version_b)
            << "kill " << kill << ": torn file of " << content.size() << " bytes";
        if (content != before) ++changed;
        before = content;
    }
    EXPECT_GT(changed, 0);
    // Kills that landed inside a save left its temporary file behind; they
    // do not block the next save, and the file is still the one it was.
    const std::string listing = folder.Listing();
    EXPECT_NE(listing, "state;") << "no kill landed inside a save";
    EXPECT_TRUE(ReplaceFile(path, "after the kills").ok());
    EXPECT_EQ(Content(path), "after the kills");
    EXPECT_EQ(folder.Listing(), listing);
}

}  // namespace
}  // namespace kit
