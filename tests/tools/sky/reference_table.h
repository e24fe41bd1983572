// The reference tables in data/, read once per test binary.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace timetool::sky::testing {

// The rows of data/<name>; fails the calling test when the file cannot be read.
const nlohmann::json& ReferenceRows(const std::string& name);

inline constexpr double kSecondsPerDay = 86400.0;

}  // namespace timetool::sky::testing
