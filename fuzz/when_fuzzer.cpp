// timetool's WHEN parser and the month parser on fuzzed text. Checked: the
// outcome is either a value or a reason, a civil value lies in the ranges the
// parser promises, and the date check answers for every calendar kind.
#include <cstdint>

#include "fuzz/fuzz_input.h"
#include "when.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactBytes text(std::string_view(reinterpret_cast<const char*>(data), size));
    const timetool::WhenParse parsed = timetool::ParseWhen(text.view());
    fuzz::Require(parsed.when.has_value() != !parsed.error.empty(), "ParseWhen gives a value or a reason");
    if (parsed.when && parsed.when->form == timetool::WhenForm::Civil) {
        const timetool::CivilTime& civil = parsed.when->civil;
        fuzz::Require(civil.month >= 1 && civil.month <= 13, "month within [1, 13]");
        fuzz::Require(civil.day >= 1 && civil.day <= 31, "day within [1, 31]");
        fuzz::Require(civil.hour >= 0 && civil.hour <= 23, "hour within [0, 23]");
        fuzz::Require(civil.minute >= 0 && civil.minute <= 59, "minute within [0, 59]");
        fuzz::Require(civil.second >= 0.0 && civil.second < 60.0, "second within [0, 60)");
        for (int kind = 0; kind <= 6; ++kind) timetool::CivilDateError(kind, civil);
    }
    timetool::ParseYearMonth(text.view());
    return 0;
}
