// timetool's whole command line, run in process as a person would type it.
// The input is the argument list, arguments separated by NUL bytes; after the
// first three NULs in a row the rest is standard input. Every run happens in
// a scratch folder made at start: it is the current directory during the
// run (and only then, so libFuzzer's own files land where it was started),
// it holds the registry (CALENDAR_REGISTRY) and a few files to load, and '/'
// in an argument becomes '_' ("." and ".." become "_"), so every file a
// command saves or loads is a plain name inside it. Standard output is discarded and
// standard error kept for the checks; nothing reaches the terminal.
// Checked: the status is 0, 1 or 2; a failed run ends with one line
// "timetool: ..." on standard error; no line on standard error carries a
// control character or runs past a readable length.
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "command_line.h"
#include "fuzz/fuzz_input.h"

namespace {

// Arguments beyond this are dropped; a person types far fewer.
constexpr std::size_t kMaxArguments = 64;
// Longest line standard error may carry: the message around two echoed
// arguments of 64 characters, at most 4 bytes each with escapes.
constexpr std::size_t kMaxErrorLine = 1024;

constexpr std::string_view kRegistry = "[Calendar]\nSDAdam=1721424\nSDGeneric=#1F\n";
constexpr std::string_view kStoredTime =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Parameters>"
    "<Parameter><Name>Day</Name><Type>integer</Type><Value>21</Value></Parameter>"
    "<Parameter><Name>Month</Name><Type>integer</Type><Value>6</Value></Parameter>"
    "<Parameter><Name>Year</Name><Type>integer</Type><Value>2024</Value></Parameter>"
    "<Parameter><Name>Hour</Name><Type>integer</Type><Value>17</Value></Parameter>"
    "<Parameter><Name>Minute</Name><Type>integer</Type><Value>54</Value></Parameter>"
    "<Parameter><Name>Second</Name><Type>double</Type><Value>30.5</Value></Parameter></Parameters>";

struct Fixture {
    const char* name;
    std::string_view bytes;
};

// Files every run finds in the scratch folder, restored after a run that
// may have changed them.
const Fixture kFixtures[] = {
    {"registry.ini", kRegistry},
    {"time.xml", kStoredTime},
    {"bare.xml", "<a/>"},
};

// A stream buffer that keeps nothing.
class Discard final : public std::streambuf {
protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

std::string& Scratch() {
    static std::string folder;
    return folder;
}

// The folders a run changes into and back from.
int& ScratchFolder() {
    static int descriptor = -1;
    return descriptor;
}

int& StartFolder() {
    static int descriptor = -1;
    return descriptor;
}

void ChangeFolder(int descriptor) {
    if (fchdir(descriptor) != 0) {
        std::perror("fchdir");
        std::abort();
    }
}

void RemoveScratch() {
    std::error_code ignored;
    if (!Scratch().empty()) std::filesystem::remove_all(Scratch(), ignored);
}

void WriteFixtures() {
    for (const Fixture& fixture : kFixtures) {
        std::ofstream(Scratch() + "/" + fixture.name, std::ios::binary | std::ios::trunc)
            .write(fixture.bytes.data(), static_cast<std::streamsize>(fixture.bytes.size()));
    }
}

bool IsFixture(std::string_view name) {
    for (const Fixture& fixture : kFixtures) {
        if (name == fixture.name) return true;
    }
    return false;
}

// Leaves the scratch folder as the first run found it.
void RestoreScratch() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(Scratch(), ignored)) {
        if (!IsFixture(entry.path().filename().string())) std::filesystem::remove_all(entry.path(), ignored);
    }
    WriteFixtures();
}

std::string Confined(std::string_view argument) {
    if (argument == "." || argument == "..") return "_";
    std::string text(argument);
    for (char& c : text) {
        if (c == '/') c = '_';
    }
    return text;
}

void CheckErrorLines(const std::string& errors, int status) {
    std::size_t start = 0;
    std::string_view last;
    while (start < errors.size()) {
        const std::size_t end = errors.find('\n', start);
        fuzz::Require(end != std::string::npos, "standard error ends every line");
        const std::string_view line(errors.data() + start, end - start);
        fuzz::Require(line.size() <= kMaxErrorLine, "standard error lines stay readable");
        for (std::size_t i = 0; i < line.size(); ++i) {
            const auto byte = static_cast<unsigned char>(line[i]);
            fuzz::Require(byte >= 0x20 && byte != 0x7F, "no control character on standard error");
            const bool c1 = byte == 0xC2 && i + 1 < line.size() && static_cast<unsigned char>(line[i + 1]) >= 0x80 &&
                            static_cast<unsigned char>(line[i + 1]) <= 0x9F;
            fuzz::Require(!c1, "no C1 control character on standard error");
        }
        fuzz::Require(line.starts_with("timetool: "), "standard error lines are timetool's");
        last = line;
        start = end + 1;
    }
    if (status != 0) {
        fuzz::Require(!last.empty() && !last.starts_with("timetool: warning: "), "a failed run says why");
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    std::string pattern = (std::filesystem::temp_directory_path() / "timetool-args-fuzz-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        std::perror("mkdtemp");
        std::abort();
    }
    Scratch() = pattern;
    std::atexit(RemoveScratch);
    WriteFixtures();
    ScratchFolder() = open(Scratch().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    StartFolder() = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (ScratchFolder() < 0 || StartFolder() < 0) {
        std::perror("open");
        std::abort();
    }
    setenv("CALENDAR_REGISTRY", (Scratch() + "/registry.ini").c_str(), 1);
    setenv("TIMETOOL_NOW", "2024-06-21T17:54:00", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (Scratch().empty()) LLVMFuzzerInitialize(nullptr, nullptr);  // the replay main does not call it
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t inputStart = input.find(std::string_view("\0\0\0", 3));
    const std::string_view line = input.substr(0, inputStart);
    const std::string_view standardInput =
        inputStart == std::string_view::npos ? std::string_view() : input.substr(inputStart + 3);

    std::vector<std::string> arguments{"timetool"};
    bool saves = false;
    for (std::size_t start = 0; start <= line.size() && arguments.size() <= kMaxArguments;) {
        std::size_t end = line.find('\0', start);
        if (end == std::string_view::npos) end = line.size();
        if (!line.empty()) arguments.push_back(Confined(line.substr(start, end - start)));
        saves = saves || arguments.back() == "save";
        start = end + 1;
    }
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);

    Discard output;
    std::ostringstream errors;
    std::istringstream in{std::string(standardInput)};
    std::streambuf* const oldOut = std::cout.rdbuf(&output);
    std::streambuf* const oldErr = std::cerr.rdbuf(errors.rdbuf());
    std::streambuf* const oldIn = std::cin.rdbuf(in.rdbuf());
    std::cin.clear();
    ChangeFolder(ScratchFolder());
    const int status = timetool::RunCommandLine(static_cast<int>(argv.size() - 1), argv.data());
    ChangeFolder(StartFolder());
    std::cout.rdbuf(oldOut);
    std::cerr.rdbuf(oldErr);
    std::cin.rdbuf(oldIn);
    std::cout.clear();
    std::cin.clear();

    fuzz::Require(status == 0 || status == 1 || status == 2, "status 0, 1 or 2");
    CheckErrorLines(errors.str(), status);
    if (saves) RestoreScratch();
    return 0;
}
