// Numbers as a stream of text carries them: the shortest form that reads
// back to the same double, with non-finite values named.
#pragma once

#include <string>

namespace timetool {

// Appends "nan" for every NaN whatever its sign, "inf" and "-inf" for the
// infinities, otherwise std::to_chars's shortest round-trip form ("0.1",
// "1e+300", "-0").
void AppendNumber(std::string& out, double value);

}  // namespace timetool
