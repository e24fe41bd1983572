// Time objects set to the sun-and-moon input instants, one per input, made
// once before any timing so the timed loops call only the operation measured.
#pragma once

#include <vector>

#include "module_loader.h"

namespace bench {

const std::vector<SmartPtr<ITime>>& SkyTimeObjects();

}  // namespace bench
