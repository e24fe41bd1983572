#include "tool_runner.h"

#include <fcntl.h>
#include <grp.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

extern char** environ;

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

ChildCommand::ChildCommand(const std::string& program, const std::vector<std::string>& args,
                           std::vector<std::string> variables)
    : words_{program}, variables_(std::move(variables)) {
    words_.insert(words_.end(), args.begin(), args.end());
    for (std::string& word : words_) argv_.push_back(word.data());
    argv_.push_back(nullptr);
    for (std::string& variable : variables_) envp_.push_back(variable.data());
    envp_.push_back(nullptr);
}

namespace {

// Waits for the child and reads what it wrote to the two files.
ToolRun Collect(pid_t pid, const std::string& outPath, const std::string& errPath) {
    int wstatus = 0;
    waitpid(pid, &wstatus, 0);
    ToolRun run;
    run.status = WIFEXITED(wstatus) ? WEXITSTATUS(wstatus) : -1;
    run.out = ReadFile(outPath);
    run.err = ReadFile(errPath);
    return run;
}

}  // namespace

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "timetool-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

ToolRun RunProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input,
                   const std::vector<std::string>& environment) {
    const TempDir scratch;
    const std::string inPath = scratch.path() + "/in";
    const std::string outPath = scratch.path() + "/out";
    const std::string errPath = scratch.path() + "/err";
    std::ofstream(inPath, std::ios::binary) << input;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, inPath.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);

    std::vector<std::string> variables = environment;
    for (char** entry = environ; *entry; ++entry) {
        const std::string variable(*entry);
        const std::string name = variable.substr(0, variable.find('=') + 1);
        bool replaced = false;
        for (const std::string& given : environment) replaced = replaced || given.rfind(name, 0) == 0;
        if (!replaced) variables.push_back(variable);
    }
    ChildCommand command(program, args, std::move(variables));

    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, program.c_str(), &actions, nullptr, command.argv(), command.envp());
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) throw std::runtime_error("cannot start " + program);
    return Collect(pid, outPath, errPath);
}

ToolRun RunTimetool(const std::vector<std::string>& args, const std::string& input,
                    const std::vector<std::string>& environment) {
    std::vector<std::string> variables = environment;
    bool localeGiven = false;
    for (const std::string& variable : environment) localeGiven = localeGiven || variable.rfind("LC_ALL=", 0) == 0;
    if (!localeGiven) variables.emplace_back("LC_ALL=C.UTF-8");
    return RunProgram(TIMETOOL_PATH, args, input, variables);
}

ToolRun RunTimetoolAsNobody(const std::vector<std::string>& args, const std::vector<std::string>& environment) {
    const TempDir scratch;
    const std::string outPath = scratch.path() + "/out";
    const std::string errPath = scratch.path() + "/err";
    const int out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    ChildCommand command(TIMETOOL_PATH, args, environment);

    const pid_t pid = fork();
    if (pid == 0) {
        dup2(out, 1);
        dup2(err, 2);
        if (setgroups(0, nullptr) != 0 || setgid(kNobodyId) != 0 || setuid(kNobodyId) != 0) _exit(127);
        execve(TIMETOOL_PATH, command.argv(), command.envp());
        _exit(127);
    }
    close(out);
    close(err);
    return Collect(pid, outPath, errPath);
}
