#include "scoped_module_folder.h"

#include <cstdlib>
#include <stdexcept>
#include <vector>

ScopedModuleFolder::ScopedModuleFolder() : previous_(std::filesystem::current_path()) {
    const std::string pattern = (std::filesystem::temp_directory_path() / "cal_modules_XXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot create a temporary directory");
    root_ = name.data();
    std::filesystem::create_directory(root_ / "_binlinux");
    std::filesystem::current_path(root_);
}

ScopedModuleFolder::~ScopedModuleFolder() {
    std::error_code ignored;
    std::filesystem::current_path(previous_, ignored);
    std::filesystem::remove_all(root_, ignored);
}

std::string ScopedModuleFolder::Install(const std::string& library, const std::string& module) const {
    const std::filesystem::path target = root_ / "_binlinux" / (module + ".so");
    std::filesystem::copy_file(library, target);
    return target.string();
}
