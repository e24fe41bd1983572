// The parameter set a saved Time object holds, as the kit's stream gives it
// back, and whether loading it would give the Time object exactly the values
// stored.
#pragma once

#include <string>
#include <vector>

namespace timetool {

enum class StoredKind { Empty, Integer, Double, Text, Other };

struct StoredParameter {
    std::string name;
    StoredKind kind = StoredKind::Empty;
    double number = 0.0;  // the value of Integer and Double entries
};

// Empty when `parameters` is a Time object's set whose values the Time object
// takes as they are; else the one reason it is not, as a clause naming the
// parameter ("Day 70000 does not fit ..."): none of Day, Month, Year, Hour,
// Minute and Second (no Time parameter set at all), some of them missing,
// an entry that is not a number, a value that is not finite, a Day to Minute
// that is not a whole number in -32768 to 32767 (the object's 16-bit fields
// would wrap it), a Second past the range of the object's 32-bit float.
std::string CheckStoredTime(const std::vector<StoredParameter>& parameters);

// "21", "30.5", "1e+39", "inf", "nan": the shortest text that reads back as
// `value`.
std::string StoredNumberText(double value);

}  // namespace timetool
