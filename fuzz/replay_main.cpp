// Replays files through a fuzz target without libFuzzer, so the committed
// corpus runs as an ordinary test under any compiler. Arguments are files or
// folders (every regular file inside, in name order).
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int Replay(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot read %s\n", file.c_str());
        return 1;
    }
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // A private copy of exactly the file's size, so over-reads are caught.
    std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
    exact.shrink_to_fit();
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path(argv[i]);
        if (std::filesystem::is_directory(path)) {
            for (const auto& entry : std::filesystem::directory_iterator(path)) {
                if (entry.is_regular_file()) files.push_back(entry.path());
            }
        } else {
            files.push_back(path);
        }
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        std::fprintf(stderr, "usage: %s <file or folder>...\n", argv[0]);
        return 1;
    }
    int failures = 0;
    for (const auto& file : files) failures += Replay(file);
    std::printf("replayed %zu inputs\n", files.size());
    return failures == 0 ? 0 : 1;
}
