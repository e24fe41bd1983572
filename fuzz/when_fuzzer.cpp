// timetool's WHEN parser, the month parser and the date check on fuzzed
// text. Checked: the outcome is either a value or a reason, a civil value
// lies in the ranges the parser promises, and a date the check accepts lies
// in its calendar and reads back from its day.
#include <cstdint>

#include "fuzz/fuzz_input.h"
#include "when.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactBytes text(std::string_view(reinterpret_cast<const char*>(data), size));
    const timetool::WhenParse parsed = timetool::ParseWhen(text.view());
    fuzz::Require(parsed.when.has_value() != !parsed.error.empty(), "ParseWhen gives a value or a reason");
    if (parsed.when && parsed.when->form == timetool::WhenForm::Civil) {
        const timetool::CivilTime& civil = parsed.when->civil;
        fuzz::Require(civil.year >= timetool::kMinYear && civil.year <= timetool::kMaxYear, "year within range");
        fuzz::Require(civil.monthName.empty() ? civil.month >= 1 && civil.month <= 13 : civil.month == 0,
                      "month within [1, 13] or named");
        fuzz::Require(civil.day >= 1 && civil.day <= 31, "day within [1, 31]");
        fuzz::Require(civil.hour >= 0 && civil.hour <= 23, "hour within [0, 23]");
        fuzz::Require(civil.minute >= 0 && civil.minute <= 59, "minute within [0, 59]");
        fuzz::Require(civil.second >= 0.0 && civil.second < 60.0, "second within [0, 60)");
        for (int kind = 0; kind <= 6; ++kind) {
            const timetool::CivilCheck check = timetool::CheckCivilDate(kind, civil);
            fuzz::Require(check.date.has_value() != !check.error.empty(), "CheckCivilDate gives a date or a reason");
            if (!check.date || !timetool::HasTrueCalendar(kind)) continue;
            const timetool::StarDay day = timetool::DayOfTrueDate(kind, *check.date);
            fuzz::Require(timetool::TrueDateOfDay(kind, day) == check.date, "an accepted date reads back from its day");
        }
    }
    timetool::ParseYearMonth(text.view());
    return 0;
}
