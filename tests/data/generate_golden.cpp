// Writes the golden data the module's results are pinned to:
// golden_values.txt (readable cases) and golden_digests.txt (one digest per
// exhaustive sweep). Run it only when a result is meant to change, and say
// in the commit which results changed and why.
//
// The data in this folder was made on 2026-11-24 from commit 430bc9e (the
// module as it stood before its layers were separated), with
//   cmake --build build/dev --target generate_golden
//   build/dev/tests/generate_golden tests/data 430bc9e
// The digests now count every not-a-number as one value (optimised and debug
// builds give not-a-number results different signs and payloads); they were
// made again at commit 23ecf8d, whose results had matched the digests of
// 430bc9e's exact bytes in every sweep.
#include <cinttypes>
#include <cstdio>
#include <string>

#include "golden_cases.h"
#include "golden_sweeps.h"

namespace {

void PrintValue(std::FILE* out, double value) { std::fprintf(out, " %.17g", value); }

bool WriteValues(const std::string& path, const char* commit) {
    std::FILE* out = std::fopen(path.c_str(), "w");
    if (!out) return false;
    std::fprintf(out, "# Results of the module at commit %s: operation, inputs, \"->\", results.\n", commit);
    std::fprintf(out, "# Made by tests/data/generate_golden.cpp; checked by tests/data/golden_test.cpp.\n");
    for (const golden::Case& c : golden::Cases()) {
        for (const golden::Operation& op : golden::kOperations) {
            if (std::string(op.name) != c.operation) continue;
            std::fprintf(out, "%s", op.name);
            for (double v : c.inputs) PrintValue(out, v);
            std::fprintf(out, " ->");
            for (double v : op.run(c.inputs)) PrintValue(out, v);
            std::fprintf(out, "\n");
        }
    }
    return std::fclose(out) == 0;
}

bool WriteDigests(const std::string& path, const char* commit) {
    std::FILE* out = std::fopen(path.c_str(), "w");
    if (!out) return false;
    std::fprintf(out, "# 64-bit FNV-1a of every result of each sweep (golden_sweeps.h) at commit %s:\n", commit);
    std::fprintf(out, "# sweep, digest, number of cases.\n");
    for (const golden::Sweep& sweep : golden::kSweeps) {
        golden::Digest digest;
        sweep.run(digest);
        std::fprintf(out, "%s %016" PRIx64 " %" PRId64 "\n", sweep.name, digest.Hash(), digest.Cases());
    }
    return std::fclose(out) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: generate_golden OUTPUT_FOLDER COMMIT\n");
        return 2;
    }
    const std::string folder = argv[1];
    if (!WriteValues(folder + "/golden_values.txt", argv[2]) ||
        !WriteDigests(folder + "/golden_digests.txt", argv[2])) {
        std::fprintf(stderr, "generate_golden: cannot write into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
