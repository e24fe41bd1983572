// Runs a scenario in a forked child, for code whose process-wide state (the
// service caches) is filled once and never refreshed.
#pragma once

#include <functional>
#include <string>

struct ChildOutcome {
    int exitCode = -1;   // 128 + signal number when the child was killed
    std::string output;  // what the child wrote to standard output
    std::string report;  // what the scenario returned
};

// The scenario runs in a child process with standard output captured; the
// child then leaves through exit(), so process-exit handlers run too.
ChildOutcome RunInChild(const std::function<std::string()>& scenario);

// A new empty directory; the scenario removes it when done.
std::string MakeEmptyDirectory();
