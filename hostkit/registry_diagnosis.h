// Why the registry would not give the calendars their epochs: a check that a
// host runs once to tell a person what is wrong with the registry file. The
// registry component itself answers only result codes, and the module then
// falls back to an offset of 0.0 (the file cannot be read or is malformed) or
// reads as much of a value as it can; this says which line is to blame.
#pragma once

#include <optional>
#include <string>

namespace kit {

struct RegistryProblem {
    std::string file;  // the registry file's path
    int line = 0;      // 1-based line of the problem; 0 when it concerns the whole file
    std::string what;  // one plain sentence, without the file and line
};

// The first problem of the registry file at path: the file cannot be read (a
// folder, device, FIFO or socket in its place, no permission), is larger than
// the registry accepts, holds invalid UTF-8 or a NUL byte, has a line that is
// no section header, entry or comment, or an unknown escape; or the value
// that wins for SDAdam or SDGeneric in section Calendar is empty or is not
// wholly read as a number (a decimal number with an optional sign and
// fraction, or "#" and one to eight hexadecimal digits). No problem for an
// empty path or a missing file (an empty registry).
std::optional<RegistryProblem> DiagnoseRegistry(const std::string& path);

// The same check of a file's bytes already read.
std::optional<RegistryProblem> DiagnoseRegistryText(const std::string& path, std::string_view file);

}  // namespace kit
