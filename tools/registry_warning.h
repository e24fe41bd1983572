// The one warning a run gives when the registry cannot supply the Adam and
// Generic epochs as written. The module itself stays silent and falls back
// (no epoch for a file it cannot read, day 0 for an empty value, the part it
// can read of a malformed one); this tells the person why those calendars
// moved.
#pragma once

#include <optional>
#include <string>

#include "hostkit/registry_diagnosis.h"

namespace timetool {

// "timetool: warning: registry '/home/a/registry.ini' line 3: ..." for
// `problem`, one line without the newline.
std::string RegistryWarningText(const kit::RegistryProblem& problem);

// Checks the registry file the module reads (the kit's default location) and
// prints the warning on standard error when there is a problem.
void WarnAboutRegistry();

}  // namespace timetool
