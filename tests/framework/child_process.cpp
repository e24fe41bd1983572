#include "child_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

std::string TempFile(const char* prefix) {
    std::string path = std::string("/tmp/") + prefix + "_XXXXXX";
    const int fd = mkstemp(path.data());
    if (fd >= 0) close(fd);
    return path;
}

std::string ReadAndRemove(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    std::remove(path.c_str());
    return text.str();
}

}  // namespace

ChildOutcome RunInChild(const std::function<std::string()>& scenario) {
    const std::string outputPath = TempFile("framework_output");
    const std::string reportPath = TempFile("framework_report");
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        if (!std::freopen(outputPath.c_str(), "w", stdout)) std::_Exit(3);
        const std::string report = scenario();
        std::ofstream(reportPath, std::ios::binary) << report;
        std::fflush(stdout);
        std::exit(0);
    }
    ChildOutcome outcome;
    int status = 0;
    if (child > 0 && waitpid(child, &status, 0) == child) {
        if (WIFEXITED(status)) outcome.exitCode = WEXITSTATUS(status);
        if (WIFSIGNALED(status)) outcome.exitCode = 128 + WTERMSIG(status);
    }
    outcome.output = ReadAndRemove(outputPath);
    outcome.report = ReadAndRemove(reportPath);
    return outcome;
}

std::string MakeEmptyDirectory() {
    std::string path = "/tmp/framework_empty_XXXXXX";
    return mkdtemp(path.data()) ? path : std::string();
}
