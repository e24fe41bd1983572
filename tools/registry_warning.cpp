#include "registry_warning.h"

#include <iostream>

#include "hostkit/registry_location.h"
#include "quoted_text.h"

namespace timetool {

std::string RegistryWarningText(const kit::RegistryProblem& problem) {
    std::string text = "timetool: warning: registry " + QuoteArgument(problem.file);
    if (problem.line > 0) text += " line " + std::to_string(problem.line);
    text += ": " + problem.what;
    // A problem with an epoch value says what the module makes of it; any
    // other problem fails every query of the file, and the module then counts
    // Adam and Generic from its fallback epoch.
    if (!problem.what.starts_with("the value ")) {
        text += "; the registry is not read, so Adam and Generic dates use the module's fallback epoch";
    }
    return text;
}

void WarnAboutRegistry() {
    const std::optional<kit::RegistryProblem> problem = kit::DiagnoseRegistry(kit::DefaultRegistryPath());
    if (problem) std::cerr << RegistryWarningText(*problem) << "\n";
}

}  // namespace timetool
