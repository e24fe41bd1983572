// Reading a whole file: only regular files, bounded, never waiting on a FIFO.
#include "hostkit/file_read.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "hostkit/faulty_file_system.h"
#include "hostkit/scratch_folder.h"

namespace kit {
namespace {

void Put(const std::string& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

TEST(ReadRegularFile, ReadsTheWholeFileThroughLinks) {
    ScratchFolder folder;
    const std::string bytes("a\0b\xFF", 4);
    Put(folder.File("f"), bytes);
    ASSERT_EQ(::symlink("f", folder.File("link").c_str()), 0);
    std::string read = "before";
    EXPECT_TRUE(ReadRegularFile(folder.File("link"), 100, &read).ok());
    EXPECT_EQ(read, bytes);
}

TEST(ReadRegularFile, FailuresLeaveTheOutputAsItWas) {
    ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::mkdir(folder.File("inner").c_str(), 0755), 0);
    ASSERT_EQ(::symlink("loop", folder.File("loop").c_str()), 0);
    Put(folder.File("big"), "12345");
    struct Case {
        std::string name;
        FileFailure failure;
        FileStep step;
    };
    const Case cases[] = {
        {"absent", FileFailure::kMissing, FileStep::kOpen},     {"big/below", FileFailure::kMissing, FileStep::kOpen},
        {"pipe", FileFailure::kNotRegular, FileStep::kInspect},  // returns at once, no writer needed
        {"inner", FileFailure::kFolder, FileStep::kInspect},    {"loop", FileFailure::kLinkLoop, FileStep::kOpen},
        {"big", FileFailure::kTooLarge, FileStep::kInspect},
    };
    for (const Case& c : cases) {
        std::string read = "kept";
        const FileOutcome outcome = ReadRegularFile(folder.File(c.name), 4, &read);
        EXPECT_EQ(outcome.failure, c.failure) << c.name;
        EXPECT_EQ(outcome.step, c.step) << c.name;
        EXPECT_EQ(read, "kept") << c.name;
    }
}

TEST(ReadRegularFile, FileOfExactlyTheLimitIsRead) {
    ScratchFolder folder;
    Put(folder.File("f"), "1234");
    std::string read;
    EXPECT_TRUE(ReadRegularFile(folder.File("f"), 4, &read).ok());
    EXPECT_EQ(read, "1234");
}

TEST(ReadRegularFile, InjectedReadErrorIsAnIoFailure) {
    ScratchFolder folder;
    Put(folder.File("f"), "content");
    const FaultyFileSystem system(FileCall::kRead, 1, EIO);
    std::string read = "kept";
    const FileOutcome outcome = ReadRegularFile(folder.File("f"), 100, &read, system);
    EXPECT_EQ(outcome.failure, FileFailure::kIo);
    EXPECT_EQ(outcome.step, FileStep::kRead);
    EXPECT_EQ(outcome.error, EIO);
    EXPECT_EQ(read, "kept");
}

TEST(ReadRegularFile, InjectedRefusalIsDenied) {
    ScratchFolder folder;
    Put(folder.File("f"), "content");
    ASSERT_EQ(::chmod(folder.File("f").c_str(), 0), 0);
    // Root reads a file of mode 0 all the same, so the refusal is injected.
    const FaultyFileSystem system(FileCall::kOpen, 1, EACCES);
    std::string read;
    EXPECT_EQ(ReadRegularFile(folder.File("f"), 100, &read, system).failure, FileFailure::kDenied);
}

}  // namespace
}  // namespace kit
