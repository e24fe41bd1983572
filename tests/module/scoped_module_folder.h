// A fresh temporary directory holding an empty "_binlinux" folder, made the
// current directory for the object's life. Modules are looked up relative to
// the current directory, so each test gets a private module folder.
#pragma once

#include <filesystem>
#include <string>

class ScopedModuleFolder {
public:
    ScopedModuleFolder();
    ~ScopedModuleFolder();
    ScopedModuleFolder(const ScopedModuleFolder&) = delete;
    ScopedModuleFolder& operator=(const ScopedModuleFolder&) = delete;

    // Copies a built library into the folder as "<module>.so"; returns its absolute path.
    std::string Install(const std::string& library, const std::string& module) const;

private:
    std::filesystem::path previous_;
    std::filesystem::path root_;
};
