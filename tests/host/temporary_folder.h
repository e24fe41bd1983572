// A fresh temporary folder, removed with everything in it at the end of the
// test; libraries are placed in it as symbolic links under the names a host
// looks for.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "host-helper-XXXXXX").string();
        if (mkdtemp(pattern.data())) path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }

    // Links "<module>.so" in the folder to library; returns the link's path.
    std::string Link(const std::string& library, const std::string& module) const {
        const std::filesystem::path link = std::filesystem::path(path_) / (module + ".so");
        std::filesystem::create_symlink(std::filesystem::absolute(library), link);
        return link.string();
    }

private:
    std::string path_;
};
