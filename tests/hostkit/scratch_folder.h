// A fresh folder under the system's temporary folder for tests that make
// files, links, FIFOs and sockets, removed with its content at the end of the
// scope. Tests never point the kit at any other place.
#pragma once

#include <string>
#include <string_view>

class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();
    std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }
    const std::string& path() const { return path_; }
    // Names of the entries in the folder (or one of its subfolders), sorted,
    // each followed by ";".
    std::string Listing(std::string_view subfolder = {}) const;

private:
    std::string path_;
};
