#include "hostkit/scratch_folder.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <vector>

ScratchFolder::ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kitfiles-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("cannot make a scratch folder");
    path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    // Folders a test made read-only are opened up again so they can be removed.
    for (auto it = std::filesystem::recursive_directory_iterator(path_, ignored);
         it != std::filesystem::recursive_directory_iterator(); it.increment(ignored)) {
        if (it->is_directory(ignored) && !it->is_symlink(ignored)) ::chmod(it->path().c_str(), 0700);
    }
    std::filesystem::remove_all(path_, ignored);
}

std::string ScratchFolder::Listing(std::string_view subfolder) const {
    std::vector<std::string> names;
    const std::string folder = subfolder.empty() ? path_ : File(subfolder);
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    std::string listing;
    for (const std::string& name : names) listing += name + ";";
    return listing;
}
