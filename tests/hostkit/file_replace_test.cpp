// Replacing a file: links followed, what is not a regular file left alone,
// mode and owner kept, and every failed step leaves the old file and no
// temporary file behind.
#include "hostkit/file_replace.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <string>

#include "hostkit/faulty_file_system.h"
#include "hostkit/scratch_folder.h"

namespace kit {
namespace {

std::string Content(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void Put(const std::string& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

struct stat LinkInfo(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(::lstat(path.c_str(), &info), 0) << path;
    return info;
}

std::string LinkText(const std::string& path) {
    char buffer[4096];
    const ssize_t length = ::readlink(path.c_str(), buffer, sizeof buffer);
    return length < 0 ? std::string() : std::string(buffer, static_cast<std::size_t>(length));
}

TEST(ReplaceFile, NewFileGetsTheContentAndNoTemporaryRemains) {
    ScratchFolder folder;
    const FileOutcome outcome = ReplaceFile(folder.File("a.txt"), "hello");
    EXPECT_TRUE(outcome.ok());
    EXPECT_EQ(Content(folder.File("a.txt")), "hello");
    EXPECT_EQ(folder.Listing(), "a.txt;");
}

TEST(ReplaceFile, ExistingFileIsReplacedWhole) {
    ScratchFolder folder;
    Put(folder.File("a.txt"), "an old and longer content");
    EXPECT_TRUE(ReplaceFile(folder.File("a.txt"), "new").ok());
    EXPECT_EQ(Content(folder.File("a.txt")), "new");
    EXPECT_EQ(folder.Listing(), "a.txt;");
}

TEST(ReplaceFile, SymbolicLinkStaysAndItsTargetIsReplaced) {
    ScratchFolder folder;
    Put(folder.File("real.txt"), "old");
    ASSERT_EQ(::symlink("real.txt", folder.File("link.txt").c_str()), 0);
    EXPECT_TRUE(ReplaceFile(folder.File("link.txt"), "new").ok());
    EXPECT_TRUE(S_ISLNK(LinkInfo(folder.File("link.txt")).st_mode));
    EXPECT_EQ(LinkText(folder.File("link.txt")), "real.txt");
    EXPECT_EQ(Content(folder.File("real.txt")), "new");
    EXPECT_EQ(folder.Listing(), "link.txt;real.txt;");
}

TEST(ReplaceFile, ChainOfLinksAcrossFoldersWritesInTheFinalTargetsFolder) {
    ScratchFolder folder;
    ASSERT_EQ(::mkdir(folder.File("one").c_str(), 0755), 0);
    ASSERT_EQ(::mkdir(folder.File("two").c_str(), 0755), 0);
    Put(folder.File("two/data.txt"), "old");
    // first -> one/second -> ../two/data.txt, the second link relative to its own folder.
    ASSERT_EQ(::symlink("../two/data.txt", folder.File("one/second").c_str()), 0);
    ASSERT_EQ(::symlink((folder.File("one") + "/second").c_str(), folder.File("first").c_str()), 0);
    EXPECT_TRUE(ReplaceFile(folder.File("first"), "new").ok());
    EXPECT_EQ(Content(folder.File("two/data.txt")), "new");
    EXPECT_EQ(folder.Listing(), "first;one;two;");
    EXPECT_EQ(folder.Listing("one"), "second;");
    EXPECT_EQ(folder.Listing("two"), "data.txt;");
    EXPECT_TRUE(S_ISLNK(LinkInfo(folder.File("first")).st_mode));
    EXPECT_TRUE(S_ISLNK(LinkInfo(folder.File("one/second")).st_mode));
}

TEST(ReplaceFile, DanglingLinkCreatesTheFileItNames) {
    ScratchFolder folder;
    ASSERT_EQ(::symlink("made.txt", folder.File("link.txt").c_str()), 0);
    EXPECT_TRUE(ReplaceFile(folder.File("link.txt"), "new").ok());
    EXPECT_EQ(Content(folder.File("made.txt")), "new");
    EXPECT_TRUE(S_ISLNK(LinkInfo(folder.File("link.txt")).st_mode));
    EXPECT_EQ(folder.Listing(), "link.txt;made.txt;");
}

TEST(ReplaceFile, CircleOfLinksIsRefused) {
    ScratchFolder folder;
    ASSERT_EQ(::symlink("b", folder.File("a").c_str()), 0);
    ASSERT_EQ(::symlink("a", folder.File("b").c_str()), 0);
    const FileOutcome outcome = ReplaceFile(folder.File("a"), "new");
    EXPECT_EQ(outcome.failure, FileFailure::kLinkLoop);
    EXPECT_EQ(outcome.step, FileStep::kResolve);
    EXPECT_EQ(outcome.error, ELOOP);
    EXPECT_EQ(LinkText(folder.File("a")), "b");
    EXPECT_EQ(LinkText(folder.File("b")), "a");
    EXPECT_EQ(folder.Listing(), "a;b;");
}

TEST(ReplaceFile, SelfLinkIsRefused) {
    ScratchFolder folder;
    ASSERT_EQ(::symlink("self", folder.File("self").c_str()), 0);
    EXPECT_EQ(ReplaceFile(folder.File("self"), "new").failure, FileFailure::kLinkLoop);
    EXPECT_EQ(folder.Listing(), "self;");
}

TEST(ReplaceFile, FortyLinksAreFollowedAndFortyOneAreTooMany) {
    ScratchFolder folder;
    // link0 -> link1 -> ... -> link40 -> data
    for (int i = 0; i <= 40; ++i) {
        const std::string next = i == 40 ? "data" : "link" + std::to_string(i + 1);
        ASSERT_EQ(::symlink(next.c_str(), folder.File("link" + std::to_string(i)).c_str()), 0);
    }
    EXPECT_TRUE(ReplaceFile(folder.File("link1"), "forty").ok());
    EXPECT_EQ(Content(folder.File("data")), "forty");
    EXPECT_EQ(ReplaceFile(folder.File("link0"), "forty-one").failure, FileFailure::kLinkLoop);
    EXPECT_EQ(Content(folder.File("data")), "forty");
}

TEST(ReplaceFile, FifoIsRefusedAndLeftAsItIs) {
    ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0640), 0);
    const FileOutcome outcome = ReplaceFile(folder.File("pipe"), "new");
    EXPECT_EQ(outcome.failure, FileFailure::kNotRegular);
    EXPECT_EQ(outcome.step, FileStep::kInspect);
    const struct stat info = LinkInfo(folder.File("pipe"));
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_EQ(info.st_mode & 07777, 0640u);
    EXPECT_EQ(folder.Listing(), "pipe;");
}

TEST(ReplaceFile, LinkToAFifoIsRefusedAndBothStay) {
    ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("pipe", folder.File("link").c_str()), 0);
    EXPECT_EQ(ReplaceFile(folder.File("link"), "new").failure, FileFailure::kNotRegular);
    EXPECT_TRUE(S_ISFIFO(LinkInfo(folder.File("pipe")).st_mode));
    EXPECT_TRUE(S_ISLNK(LinkInfo(folder.File("link")).st_mode));
}

TEST(ReplaceFile, SocketIsRefusedAndLeftAsItIs) {
    ScratchFolder folder;
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(fd, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder.File("socket");
    ASSERT_LT(path.size(), sizeof address.sun_path);
    path.copy(address.sun_path, path.size());
    ASSERT_EQ(::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(ReplaceFile(path, "new").failure, FileFailure::kNotRegular);
    EXPECT_TRUE(S_ISSOCK(LinkInfo(path).st_mode));
    ::close(fd);
}

TEST(ReplaceFile, DeviceNodeIsRefusedAndLeftAsItIs) {
    ScratchFolder folder;
    // The same device as the system's null device, made inside the scratch folder.
    if (::mknod(folder.File("null").c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0) {
        GTEST_SKIP() << "device nodes cannot be made here";
    }
    EXPECT_EQ(ReplaceFile(folder.File("null"), "new").failure, FileFailure::kNotRegular);
    const struct stat info = LinkInfo(folder.File("null"));
    EXPECT_TRUE(S_ISCHR(info.st_mode));
    EXPECT_EQ(info.st_rdev, makedev(1, 3));
}

TEST(ReplaceFile, FolderIsRefusedAndLeftAsItIs) {
    ScratchFolder folder;
    ASSERT_EQ(::mkdir(folder.File("inner").c_str(), 0755), 0);
    const FileOutcome outcome = ReplaceFile(folder.File("inner"), "new");
    EXPECT_EQ(outcome.failure, FileFailure::kFolder);
    EXPECT_TRUE(S_ISDIR(LinkInfo(folder.File("inner")).st_mode));
    EXPECT_EQ(folder.Listing(), "inner;");
}

TEST(ReplaceFile, ModeOfTheOldFileIsKept) {
    ScratchFolder folder;
    for (const mode_t mode : {0600u, 0640u, 0444u, 0755u}) {
        const std::string path = folder.File("m" + std::to_string(mode));
        Put(path, "old");
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        EXPECT_TRUE(ReplaceFile(path, "new").ok());
        EXPECT_EQ(LinkInfo(path).st_mode & 07777, mode) << mode;
        EXPECT_EQ(Content(path), "new");
    }
}

TEST(ReplaceFile, NewFileGetsTheRequestedModeLessTheUmask) {
    ScratchFolder folder;
    const mode_t mask = ::umask(022);
    EXPECT_TRUE(ReplaceFile(folder.File("a"), "x", {.new_file_mode = 0666}).ok());
    EXPECT_TRUE(ReplaceFile(folder.File("b"), "x", {.new_file_mode = 0644}).ok());
    ::umask(mask);
    EXPECT_EQ(LinkInfo(folder.File("a")).st_mode & 07777, 0644u);
    EXPECT_EQ(LinkInfo(folder.File("b")).st_mode & 07777, 0644u);
}

TEST(ReplaceFile, OwnerAndGroupAreKeptWherePermitted) {
    ScratchFolder folder;
    const std::string path = folder.File("owned");
    Put(path, "old");
    if (::chown(path.c_str(), 4321, 8765) != 0) GTEST_SKIP() << "only a privileged saver can give files away";
    EXPECT_TRUE(ReplaceFile(path, "new").ok());
    EXPECT_EQ(LinkInfo(path).st_uid, 4321u);
    EXPECT_EQ(LinkInfo(path).st_gid, 8765u);
}

TEST(ReplaceFile, OwnerChangeThatIsNotPermittedStillSaves) {
    ScratchFolder folder;
    const std::string path = folder.File("owned");
    Put(path, "old");
    const FaultyFileSystem refuses(FileCall::kOwner, 1, EPERM);
    EXPECT_TRUE(ReplaceFile(path, "new", {}, refuses).ok());
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(refuses.Calls(FileCall::kOwner), 1);
}

TEST(ReplaceFile, MissingFolderFailsWithoutMakingIt) {
    ScratchFolder folder;
    const FileOutcome outcome = ReplaceFile(folder.File("no/such/file"), "x");
    EXPECT_EQ(outcome.failure, FileFailure::kMissing);
    EXPECT_EQ(outcome.step, FileStep::kOpen);
    EXPECT_EQ(folder.Listing(), "");
}

TEST(ReplaceFile, MissingFoldersAreMadeWhenAsked) {
    ScratchFolder folder;
    EXPECT_TRUE(ReplaceFile(folder.File("new/deeper/file"), "x", {.make_folders = true}).ok());
    EXPECT_EQ(Content(folder.File("new/deeper/file")), "x");
}

TEST(ReplaceFile, ReadOnlyFolderIsAFailureWithNothingLeft) {
    ScratchFolder folder;
    ASSERT_EQ(::mkdir(folder.File("locked").c_str(), 0755), 0);
    Put(folder.File("locked/file"), "old");
    ASSERT_EQ(::chmod(folder.File("locked").c_str(), 0555), 0);
    // Root ignores the folder's mode, so the refusal itself is injected there.
    const FaultyFileSystem denies(FileCall::kOpen, 1, EACCES);
    const FileOutcome outcome =
        ReplaceFile(folder.File("locked/file"), "new", {}, ::geteuid() == 0 ? denies : SystemFileSystem());
    EXPECT_EQ(outcome.failure, FileFailure::kDenied);
    EXPECT_EQ(outcome.step, FileStep::kOpen);
    EXPECT_EQ(Content(folder.File("locked/file")), "old");
    EXPECT_EQ(folder.Listing("locked"), "file;");
}

TEST(ReplaceFile, StaleTemporaryNamesAreSkipped) {
    ScratchFolder folder;
    Put(folder.File("a"), "old");
    // Three names in a row already taken, as by files a crashed saver left.
    const FaultyFileSystem first(FileCall::kOpen, 1, EEXIST);
    EXPECT_TRUE(ReplaceFile(folder.File("a"), "new", {}, first).ok());
    EXPECT_EQ(first.Calls(FileCall::kOpen), 3);  // the taken name, the next one, the folder to flush
    EXPECT_EQ(Content(folder.File("a")), "new");
    EXPECT_EQ(folder.Listing(), "a;");
}

TEST(ReplaceFile, StaleTemporaryFileDoesNotBlockASave) {
    ScratchFolder folder;
    Put(folder.File("a"), "old");
    const std::string stale = folder.File("a.tmp" + std::to_string(::getpid()) + ".0.00000000");
    Put(stale, "half");
    EXPECT_TRUE(ReplaceFile(folder.File("a"), "new").ok());
    EXPECT_EQ(Content(folder.File("a")), "new");
    EXPECT_EQ(Content(stale), "half");
}

TEST(ReplaceFile, LongestFileNameStillGetsATemporaryBesideIt) {
    ScratchFolder folder;
    const std::string name(255, 'n');
    Put(folder.File(name), "old");
    EXPECT_TRUE(ReplaceFile(folder.File(name), "new").ok());
    EXPECT_EQ(Content(folder.File(name)), "new");
    EXPECT_EQ(folder.Listing(), name + ";");
}

// One injected failure: the call, which of its calls, the error, and what the
// outcome must say.
struct Fault {
    FileCall call;
    int nth;
    int error;
    FileStep step;
    FileFailure failure;
};

const Fault kFaults[] = {
    {FileCall::kOpen, 1, ENOSPC, FileStep::kOpen, FileFailure::kNoSpace},
    {FileCall::kOpen, 1, EIO, FileStep::kOpen, FileFailure::kIo},
    {FileCall::kOwner, 1, EIO, FileStep::kOwner, FileFailure::kIo},
    {FileCall::kMode, 1, EIO, FileStep::kMode, FileFailure::kIo},
    {FileCall::kMode, 1, ENOSPC, FileStep::kMode, FileFailure::kNoSpace},
    {FileCall::kWrite, 1, ENOSPC, FileStep::kWrite, FileFailure::kNoSpace},
    {FileCall::kWrite, 2, ENOSPC, FileStep::kWrite, FileFailure::kNoSpace},
    {FileCall::kWrite, 3, ENOSPC, FileStep::kWrite, FileFailure::kNoSpace},
    {FileCall::kWrite, 1, EIO, FileStep::kWrite, FileFailure::kIo},
    {FileCall::kWrite, 3, EIO, FileStep::kWrite, FileFailure::kIo},
    {FileCall::kWrite, 2, EDQUOT, FileStep::kWrite, FileFailure::kNoSpace},
    {FileCall::kFlush, 1, EIO, FileStep::kFlush, FileFailure::kIo},
    {FileCall::kFlush, 1, ENOSPC, FileStep::kFlush, FileFailure::kNoSpace},
    {FileCall::kClose, 1, EIO, FileStep::kClose, FileFailure::kIo},
    {FileCall::kClose, 1, ENOSPC, FileStep::kClose, FileFailure::kNoSpace},
    {FileCall::kRename, 1, EIO, FileStep::kRename, FileFailure::kIo},
    {FileCall::kRename, 1, ENOSPC, FileStep::kRename, FileFailure::kNoSpace},
    {FileCall::kRename, 1, EXDEV, FileStep::kRename, FileFailure::kIo},
    {FileCall::kRename, 1, EBUSY, FileStep::kRename, FileFailure::kIo},
    {FileCall::kRename, 1, EACCES, FileStep::kRename, FileFailure::kDenied},
};

// 10000 bytes in chunks of 4096: three writes.
const std::string kNewContent(10000, 'n');

TEST(ReplaceFile, EveryFailedStepKeepsTheOldFileAndLeavesNoTemporary) {
    for (const Fault& fault : kFaults) {
        ScratchFolder folder;
        const std::string path = folder.File("kept");
        Put(path, "the old content");
        ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
        const FaultyFileSystem system(fault.call, fault.nth, fault.error);
        const FileOutcome outcome = ReplaceFile(path, kNewContent, {}, system);
        const std::string what = std::to_string(static_cast<int>(fault.call)) + "#" + std::to_string(fault.nth) +
                                 " errno " + std::to_string(fault.error);
        EXPECT_EQ(outcome.step, fault.step) << what;
        EXPECT_EQ(outcome.failure, fault.failure) << what;
        EXPECT_EQ(outcome.error, fault.error) << what;
        EXPECT_EQ(Content(path), "the old content") << what;
        EXPECT_EQ(LinkInfo(path).st_mode & 07777, 0640u) << what;
        EXPECT_EQ(folder.Listing(), "kept;") << what;
    }
}

TEST(ReplaceFile, EveryWriteOfASaveIsOneCall) {
    ScratchFolder folder;
    const FaultyFileSystem counting(FileCall::kNone, 0, 0);
    EXPECT_TRUE(ReplaceFile(folder.File("a"), kNewContent, {}, counting).ok());
    EXPECT_EQ(counting.Calls(FileCall::kWrite), 3);
    EXPECT_EQ(counting.Calls(FileCall::kFlush), 2);  // the file, then its folder
}

TEST(ReplaceFile, FailedFolderFlushIsReportedWithTheNewContentInPlace) {
    for (const int error : {EIO, ENOSPC}) {
        ScratchFolder folder;
        Put(folder.File("a"), "old");
        const FaultyFileSystem system(FileCall::kFlush, 2, error);
        const FileOutcome outcome = ReplaceFile(folder.File("a"), "new", {}, system);
        EXPECT_EQ(outcome.step, FileStep::kFlushFolder);
        EXPECT_EQ(outcome.error, error);
        EXPECT_EQ(Content(folder.File("a")), "new");
        EXPECT_EQ(folder.Listing(), "a;");
    }
}

TEST(ReplaceFile, EmptyPathIsMissing) { EXPECT_EQ(ReplaceFile("", "x").failure, FileFailure::kMissing); }

TEST(FolderOf, BareNamesRootAndNestedPaths) {
    EXPECT_EQ(FolderOf("file"), ".");
    EXPECT_EQ(FolderOf("/file"), "/");
    EXPECT_EQ(FolderOf("a/b/c"), "a/b");
    EXPECT_EQ(FolderOf("/a/b"), "/a");
}

}  // namespace
}  // namespace kit
