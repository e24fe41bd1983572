// Runs a built executable as a user would and collects what it prints.
#pragma once

#include <string>
#include <vector>

struct ToolRun {
    int status = -1;  // exit status, or -1 when the process did not exit normally
    std::string out;
    std::string err;
};

// Runs `program` with `args`, feeding `input` on standard input, in the
// current directory (tests run from the build tree). `environment` entries
// ("NAME=value") replace or add to the test's own environment.
ToolRun RunProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input = "",
                   const std::vector<std::string>& environment = {});

// Where the runs of timetool find the registry unless a test names another:
// a file that does not exist, so the Adam and Generic calendars have no epoch.
inline constexpr const char* kNoRegistry = "CALENDAR_REGISTRY=/nonexistent/timetool-tests/registry.ini";

// Runs the built timetool, in the C.UTF-8 locale unless `environment` sets
// LC_ALL: text output depends on the locale's character set.
ToolRun RunTimetool(const std::vector<std::string>& args, const std::string& input = "",
                    const std::vector<std::string>& environment = {kNoRegistry});

// The user checks of permissions run timetool as when the tests run as the
// superuser, whom permissions do not bind.
inline constexpr unsigned kNobodyId = 65534;

// Runs the built timetool as user and group kNobodyId (the caller must be the
// superuser). Status 127 means it could not start as that user (the build
// folder out of its reach).
ToolRun RunTimetoolAsNobody(const std::vector<std::string>& args, const std::vector<std::string>& environment);

// The whole content of a file; empty when it cannot be read.
std::string ReadFile(const std::string& path);

// Owns the strings behind a child's argv and envp, which must stay alive
// until the child has started; build it before fork, so that the child needs
// no allocation before exec.
class ChildCommand {
public:
    ChildCommand(const std::string& program, const std::vector<std::string>& args, std::vector<std::string> variables);

    char* const* argv() { return argv_.data(); }
    char* const* envp() { return envp_.data(); }

private:
    std::vector<std::string> words_;
    std::vector<std::string> variables_;
    std::vector<char*> argv_;
    std::vector<char*> envp_;
};

// A fresh directory under the system's temporary folder, removed with its
// contents when the holder is destroyed.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};
