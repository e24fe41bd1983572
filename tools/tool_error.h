// The one way a command stops early: a message for standard error and the
// process's exit status (2 for bad input, 1 for a module that fails).
#pragma once

#include <string>

namespace timetool {

inline constexpr int kExitBadInput = 2;
inline constexpr int kExitModule = 1;

struct ToolError {
    int status;
    std::string message;  // one line, without the trailing newline
};

}  // namespace timetool
