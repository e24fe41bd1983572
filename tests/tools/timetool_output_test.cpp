// What timetool does when its output cannot be written. Write failures are
// made in a child process: standard output goes to a file in a temporary
// folder under a file size limit (SIGXFSZ ignored, so the write fails with
// EFBIG), or to a pipe whose reader has gone, or is not open at all.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tool_runner.h"

extern char** environ;

namespace {

// How the child is set up before timetool starts in it.
struct Child {
    std::vector<std::string> args;
    int in = -1;                           // descriptor for standard input; -1: the test's own
    int out = -1;                          // descriptor for standard output; -1: closed
    int err = -1;                          // descriptor for standard error; -1: closed
    rlim_t fileSizeLimit = RLIM_INFINITY;  // bytes any one file may grow to
    bool ignorePipeSignal = false;         // as a caller that ignores SIGPIPE leaves it
    std::string registry = kNoRegistry;    // CALENDAR_REGISTRY=...
};

struct Ended {
    bool exited = false;
    int status = -1;  // exit status, or the signal that ended it
    bool inTime = false;
};

// Waits up to `limit` for the child; kills it when it has not ended by then.
Ended Wait(pid_t pid, std::chrono::seconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    int wstatus = 0;
    Ended ended;
    for (;;) {
        const pid_t done = waitpid(pid, &wstatus, WNOHANG);
        if (done == pid) break;
        if (std::chrono::steady_clock::now() > deadline) {
            kill(pid, SIGKILL);
            waitpid(pid, &wstatus, 0);
            return ended;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ended.inTime = true;
    ended.exited = WIFEXITED(wstatus);
    ended.status = ended.exited ? WEXITSTATUS(wstatus) : WTERMSIG(wstatus);
    return ended;
}

// Starts timetool as `child` says. The descriptors given are opened
// close-on-exec, so the child holds only its own 0, 1 and 2 (a reader of the
// pipe kept in the child would keep it from ever breaking); the caller
// closes the parent's copies.
pid_t Start(const Child& child) {
    std::vector<std::string> variables{child.registry};
    for (char** entry = environ; *entry; ++entry) {
        if (std::strncmp(*entry, "CALENDAR_REGISTRY=", 18) != 0) variables.emplace_back(*entry);
    }
    ChildCommand command(TIMETOOL_PATH, child.args, std::move(variables));

    const pid_t pid = fork();
    if (pid != 0) return pid;
    // In the child only async-signal-safe calls until exec.
    if (child.in >= 0) dup2(child.in, 0);
    if (child.out < 0) {
        close(1);
    } else {
        dup2(child.out, 1);
    }
    if (child.err < 0) {
        close(2);
    } else {
        dup2(child.err, 2);
    }
    const rlimit limit{child.fileSizeLimit, child.fileSizeLimit};
    setrlimit(RLIMIT_FSIZE, &limit);
    signal(SIGXFSZ, SIG_IGN);
    if (child.ignorePipeSignal) signal(SIGPIPE, SIG_IGN);
    execve(TIMETOOL_PATH, command.argv(), command.envp());
    _exit(127);
}

struct FileRun {
    Ended ended;
    std::string out;
    std::string err;
};

// Runs timetool with standard output and standard error in files of `dir`,
// each allowed to grow to `limit` bytes.
FileRun RunIntoFiles(const TempDir& dir, const std::vector<std::string>& args, rlim_t limit) {
    const std::string outPath = dir.path() + "/out";
    const std::string errPath = dir.path() + "/err";
    Child child;
    child.args = args;
    child.out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    child.err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    child.fileSizeLimit = limit;
    const pid_t pid = Start(child);
    close(child.out);
    close(child.err);
    FileRun run;
    run.ended = Wait(pid, std::chrono::seconds(60));
    run.out = ReadFile(outPath);
    run.err = ReadFile(errPath);
    return run;
}

constexpr rlim_t kLimit = 1024;

TEST(TimetoolOutputFailure, AFullStandardOutputEndsWithStatus1AndOneMessage) {
    const std::vector<std::vector<std::string>> commands = {
        {"moon", "2024-01-01", "--days", "100"}, {"moon", "2024-01-01", "--days", "100", "--json"},
        {"sun", "2024-01-01", "--days", "60"},   {"convert", "2024-06-21", "--json"},
        {"month", "2024-06", "--json"},
    };
    const TempDir dir;
    for (const std::vector<std::string>& args : commands) {
        const ToolRun whole = RunTimetool(args);
        ASSERT_EQ(whole.status, 0) << args.at(0) << whole.err;
        ASSERT_GT(whole.out.size(), kLimit) << args.at(0);

        const FileRun cut = RunIntoFiles(dir, args, kLimit);
        ASSERT_TRUE(cut.ended.inTime) << args.at(0);
        EXPECT_TRUE(cut.ended.exited) << args.at(0);
        EXPECT_EQ(cut.ended.status, 1) << args.at(0);
        EXPECT_EQ(cut.err, "timetool: cannot write to standard output: File too large\n") << args.at(0);
        // What did reach the file is the output's beginning.
        EXPECT_EQ(cut.out, whole.out.substr(0, kLimit)) << args.at(0);
    }
}

TEST(TimetoolOutputFailure, OutputWithinTheLimitEndsWith0) {
    const TempDir dir;
    const std::vector<std::string> args{"show", "2024-06-21", "--calendar", "gregorian"};
    const FileRun run = RunIntoFiles(dir, args, kLimit);
    ASSERT_TRUE(run.ended.inTime);
    EXPECT_TRUE(run.ended.exited);
    EXPECT_EQ(run.ended.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, RunTimetool(args).out);
}

TEST(TimetoolOutputFailure, WindowStopsReadingWhenItsOutputFails) {
    const TempDir dir;
    const std::string input = dir.path() + "/numbers";
    {
        std::ofstream numbers(input);
        for (int i = 0; i < 20000; ++i) numbers << i << "\n";
    }
    const std::string outPath = dir.path() + "/out";
    const std::string errPath = dir.path() + "/err";
    Child child;
    child.args = {"window", "3"};
    child.out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    child.err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    child.fileSizeLimit = kLimit;
    const int numbers = open(input.c_str(), O_RDONLY | O_CLOEXEC);
    child.in = numbers;
    const pid_t pid = Start(child);
    close(child.out);
    close(child.err);
    const Ended ended = Wait(pid, std::chrono::seconds(60));
    ASSERT_TRUE(ended.inTime);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ReadFile(errPath), "timetool: cannot write to standard output: File too large\n");
    // The reading stopped early: most of the numbers were never read (the
    // child shared this descriptor and its position).
    const off_t position = lseek(numbers, 0, SEEK_CUR);
    close(numbers);
    EXPECT_LT(position, static_cast<off_t>(std::filesystem::file_size(input) / 2));
}

TEST(TimetoolOutputFailure, AClosedStandardOutputEndsWithStatus1) {
    const TempDir dir;
    const std::string errPath = dir.path() + "/err";
    Child child;
    child.args = {"show", "2024-06-21"};
    child.err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const pid_t pid = Start(child);
    close(child.err);
    const Ended ended = Wait(pid, std::chrono::seconds(60));
    ASSERT_TRUE(ended.inTime);
    EXPECT_TRUE(ended.exited);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ReadFile(errPath), "timetool: cannot write to standard output: Bad file descriptor\n");
}

TEST(TimetoolOutputFailure, AFailedErrorMessageKeepsTheStatusOfTheFailure) {
    // Standard error cannot take a byte: the message is lost, the status
    // still tells of the bad input.
    const TempDir dir;
    const FileRun run = RunIntoFiles(dir, {"show", "2024-02-30"}, 0);
    ASSERT_TRUE(run.ended.inTime);
    EXPECT_TRUE(run.ended.exited);
    EXPECT_EQ(run.ended.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
}

TEST(TimetoolOutputFailure, AWarningThatCannotBeWrittenEndsWithStatus1) {
    // The run itself succeeds and its output is whole; the registry warning
    // it owes cannot reach standard error.
    const TempDir dir;
    const std::string registry = dir.path() + "/registry.ini";
    std::ofstream(registry) << "[Calendar]\nSDAdam=abc\n";
    const std::string errPath = dir.path() + "/err";
    int pipeEnds[2];
    ASSERT_EQ(pipe2(pipeEnds, O_CLOEXEC), 0);
    Child child;
    child.args = {"convert", "2024-06-21", "--to", "adam"};
    child.out = pipeEnds[1];
    child.err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    child.fileSizeLimit = 0;
    child.registry = "CALENDAR_REGISTRY=" + registry;
    const pid_t pid = Start(child);
    close(pipeEnds[1]);
    close(child.err);
    std::string out;
    char buffer[4096];
    for (ssize_t n; (n = read(pipeEnds[0], buffer, sizeof buffer)) > 0;)
        out.append(buffer, static_cast<std::size_t>(n));
    close(pipeEnds[0]);
    const Ended ended = Wait(pid, std::chrono::seconds(60));
    ASSERT_TRUE(ended.inTime);
    EXPECT_TRUE(ended.exited);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(out, "Star date      739060.000000\nAdam           24 June 2024 (the module's own calendar)\n");
    EXPECT_EQ(ReadFile(errPath), "");
}

// Reads the first line from the pipe, then closes it, as `head -1` does.
std::string ReadFirstLineAndClose(int reader) {
    std::string line;
    char c = 0;
    while (read(reader, &c, 1) == 1 && c != '\n') line += c;
    close(reader);
    return line;
}

class TimetoolClosedPipe : public ::testing::TestWithParam<bool> {};

TEST_P(TimetoolClosedPipe, EndsAtOnceAndQuietly) {
    const TempDir dir;
    const std::string errPath = dir.path() + "/err";
    int pipeEnds[2];
    ASSERT_EQ(pipe2(pipeEnds, O_CLOEXEC), 0);
    Child child;
    child.args = {"moon", "2024-01-01", "--days", "3660"};
    child.out = pipeEnds[1];
    child.err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    child.ignorePipeSignal = GetParam();
    const pid_t pid = Start(child);
    close(pipeEnds[1]);
    close(child.err);
    EXPECT_EQ(ReadFirstLineAndClose(pipeEnds[0]), "Date and time (UTC)  Phase     Lit     Moon                 Module");
    const Ended ended = Wait(pid, std::chrono::seconds(60));
    ASSERT_TRUE(ended.inTime);
    // Ended by SIGPIPE, as command-line tools are, whatever the caller did
    // with the signal; nothing on standard error.
    EXPECT_FALSE(ended.exited);
    EXPECT_EQ(ended.status, SIGPIPE);
    EXPECT_EQ(ReadFile(errPath), "");
}

INSTANTIATE_TEST_SUITE_P(CallerSignal, TimetoolClosedPipe, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) {
                             return info.param ? "PipeSignalIgnored" : "PipeSignalDefault";
                         });

}  // namespace
