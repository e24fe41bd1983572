// timetool's whole command line: parses the arguments, runs the command and
// reports every failure as one line on standard error. Safe to call more
// than once in a process (the fuzz target and in-process tests do).
#pragma once

namespace timetool {

// The exit status of the run: 0, 1 (the module failed) or 2 (bad input).
// No exception leaves it.
int RunCommandLine(int argc, char** argv);

}  // namespace timetool
