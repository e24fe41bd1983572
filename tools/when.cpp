#include "when.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "text_format.h"

namespace timetool {

namespace {

// A cursor over the text; every read checks the remaining length.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    bool AtEnd() const { return pos_ >= text_.size(); }
    bool Peek(char c) const { return pos_ < text_.size() && text_[pos_] == c; }
    bool PeekDigit() const { return pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9'; }
    bool Take(char c) {
        if (!Peek(c)) return false;
        ++pos_;
        return true;
    }
    // Exactly `count` decimal digits.
    bool Digits(std::size_t count, int* value) {
        if (text_.size() - pos_ < count) return false;
        int result = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const char c = text_[pos_ + i];
            if (c < '0' || c > '9') return false;
            result = result * 10 + (c - '0');
        }
        pos_ += count;
        *value = result;
        return true;
    }
    // One to `most` decimal digits; false also when more follow.
    bool SomeDigits(std::size_t most, int* value) {
        std::size_t n = 0;
        while (pos_ + n < text_.size() && text_[pos_ + n] >= '0' && text_[pos_ + n] <= '9') ++n;
        if (n == 0 || n > most) return false;
        return Digits(n, value);
    }
    // Letters, digits and blanks up to the next '-' or the end: a month name.
    std::string_view Word() {
        const std::size_t start = pos_;
        while (pos_ < text_.size() && text_[pos_] != '-') ++pos_;
        return text_.substr(start, pos_ - start);
    }
    // A fraction ".ddd" as a value in [0, 1).
    bool Fraction(double* value) {
        if (!Take('.')) return false;
        double scale = 0.1;
        double result = 0.0;
        std::size_t n = 0;
        while (pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9') {
            if (n < 9) result += scale * (text_[pos_] - '0');  // finer digits are below the star date's resolution
            scale /= 10.0;
            ++pos_;
            ++n;
        }
        *value = result;
        return n > 0;
    }

private:
    std::string_view text_;
    std::size_t pos_ = 0;
};

WhenParse Refuse(std::string error) { return WhenParse{std::nullopt, std::move(error)}; }

WhenParse Accept(When when) { return WhenParse{std::move(when), {}}; }

// A whole-text decimal number ("1e3" and a leading "-" allowed, "+" not).
bool ParseNumber(std::string_view text, double* value) {
    if (text.empty()) return false;
    const char* first = text.data();
    const char* last = text.data() + text.size();
    const auto [end, ec] = std::from_chars(first, last, *value, std::chars_format::general);
    return ec == std::errc() && end == last && std::isfinite(*value);
}

WhenParse ParseNumbered(std::string_view digits, WhenForm form) {
    double value = 0.0;
    if (!ParseNumber(digits, &value)) return Refuse("not a number");
    double starDate = value;
    if (form == WhenForm::JulianDate) starDate = value - kJulianDateOffset;
    if (form == WhenForm::LinuxTime) starDate = value / 86400.0 + kLinuxEpochStarDate;
    if (std::fabs(starDate) > kMaxStarDate)
        return Refuse("outside the range of years timetool shows (-32767 to 32767)");
    When when;
    when.form = form;
    when.value = value;
    return Accept(when);
}

// Lower case, blanks and underscores dropped: "Adar II" -> "adarii".
std::string NormalisedName(std::string_view word) {
    std::string name;
    for (char c : word) {
        if (c == ' ' || c == '_') continue;
        name += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
    return name;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// "[+-]Y-MM" or "[+-]Y-Name": the part every civil form starts with.
bool ParseYearAndMonth(Scanner& scan, int* year, int* month, std::string* monthName, std::string* error) {
    const bool negative = scan.Take('-');
    if (!negative) scan.Take('+');
    int digits = 0;
    if (!scan.SomeDigits(5, &digits) || !scan.Take('-')) {
        *error = "expected YYYY-MM-DD";
        return false;
    }
    if (digits > kMaxYear) {
        *error = "year out of range (-32767 to 32767)";
        return false;
    }
    *year = negative ? -digits : digits;
    if (scan.PeekDigit()) {
        if (!scan.Digits(2, month)) {
            *error = "expected YYYY-MM-DD";
            return false;
        }
        if (scan.PeekDigit()) {
            *error = "expected YYYY-MM-DD";
            return false;
        }
        return true;
    }
    const std::string_view word = scan.Word();
    if (word.empty() || !IsLetter(word.front())) {
        *error = "expected YYYY-MM-DD";
        return false;
    }
    *month = 0;
    *monthName = NormalisedName(word);
    return true;
}

// "+HH:MM", "+HHMM" or "+HH" (or "-"), hours up to 23 as ISO 8601 allows.
bool ParseUtcOffset(Scanner& scan, int* seconds) {
    const bool negative = scan.Take('-');
    if (!negative && !scan.Take('+')) return false;
    int hours = 0;
    int minutes = 0;
    if (!scan.Digits(2, &hours)) return false;
    if (scan.Take(':')) {
        if (!scan.Digits(2, &minutes)) return false;
    } else if (scan.PeekDigit() && !scan.Digits(2, &minutes)) {
        return false;
    }
    if (hours > 23 || minutes > 59) return false;
    *seconds = (negative ? -1 : 1) * (hours * 3600 + minutes * 60);
    return true;
}

WhenParse ParseCivil(std::string_view text) {
    Scanner scan(text);
    CivilTime civil;
    std::string error;
    if (!ParseYearAndMonth(scan, &civil.year, &civil.month, &civil.monthName, &error)) return Refuse(error);
    if (!scan.Take('-') || !scan.Digits(2, &civil.day)) return Refuse("expected YYYY-MM-DD");
    if (scan.Take('T') || scan.Take(' ')) {
        if (!scan.Digits(2, &civil.hour) || !scan.Take(':') || !scan.Digits(2, &civil.minute)) {
            return Refuse("expected HH:MM after the date");
        }
        if (scan.Take(':')) {
            int whole = 0;
            if (!scan.Digits(2, &whole)) return Refuse("expected two digits of seconds");
            double fraction = 0.0;
            if (scan.Peek('.') && !scan.Fraction(&fraction)) return Refuse("expected digits after the decimal point");
            civil.second = whole + fraction;
        }
        civil.hasTime = true;
        if (scan.Peek('+') || scan.Peek('-')) {
            if (!ParseUtcOffset(scan, &civil.offsetSeconds)) return Refuse("expected a UTC offset such as +02:00");
            civil.basis = ClockBasis::Offset;
        }
    }
    if (civil.basis != ClockBasis::Offset && scan.Take('Z')) civil.basis = ClockBasis::Utc;
    if (!scan.AtEnd()) return Refuse("unexpected characters after the date");
    if (civil.monthName.empty()) {
        if (civil.month == 0) return Refuse("there is no month 0 (months count from 1)");
        if (civil.month > 13) return Refuse("month out of range (1 to 13)");
    }
    if (civil.day == 0) return Refuse("there is no day 0 (days count from 1)");
    if (civil.day > 31) return Refuse("day out of range (1 to 31)");
    if (civil.hour > 23) return Refuse("hour out of range (0 to 23)");
    if (civil.minute > 59) return Refuse("minute out of range (0 to 59)");
    if (civil.second >= 60.0) return Refuse("second out of range (below 60: no leap seconds are counted)");
    When when;
    when.form = WhenForm::Civil;
    when.civil = std::move(civil);
    return Accept(std::move(when));
}

WhenParse ParseInstant(std::string_view text) {
    if (text == "now") return Accept(When{WhenForm::Now, {}, 0.0, {}});
    if (text == "today") return Accept(When{WhenForm::Today, {}, 0.0, {}});
    if (text.starts_with("sd:")) return ParseNumbered(text.substr(3), WhenForm::StarDate);
    if (text.starts_with("jd:")) return ParseNumbered(text.substr(3), WhenForm::JulianDate);
    if (text.starts_with("@")) return ParseNumbered(text.substr(1), WhenForm::LinuxTime);
    if (text.empty()) return Refuse("empty");
    return ParseCivil(text);
}

}  // namespace

WhenParse ParseWhen(std::string_view text) {
    StepSplit split = SplitDateSteps(text);
    if (!split.error.empty()) return Refuse(split.error);
    WhenParse parsed = ParseInstant(split.base);
    if (parsed.when) parsed.when->steps = std::move(split.steps);
    return parsed;
}

namespace {

struct HebrewMonthWord {
    std::string_view word;
    int month;  // 0: bare Adar, 12 or 13 by the year
};

// Spellings in common use; Adar of a leap year must say which.
constexpr std::array<HebrewMonthWord, 25> kHebrewMonthWords{{
    {"nisan", 1},   {"iyar", 2},   {"iyyar", 2},   {"sivan", 3},    {"tammuz", 4},   {"tamuz", 4},      {"av", 5},
    {"elul", 6},    {"tishri", 7}, {"tishrei", 7}, {"heshvan", 8},  {"cheshvan", 8}, {"marheshvan", 8}, {"kislev", 9},
    {"tevet", 10},  {"teves", 10}, {"shevat", 11}, {"shvat", 11},   {"adar", 0},     {"adari", 12},     {"adar1", 12},
    {"adarii", 13}, {"adar2", 13}, {"veadar", 13}, {"adarbet", 13},
}};

std::string MonthLengthError(int kind, const CivilDate& date, int length) {
    return FormatMonthTitle(kind, date.year, date.month) + " has " + std::to_string(length) + " days";
}

// Month lengths of the Gregorian-rule and Julian kinds.
int MonthLengthOfKind(int kind, const CivilDate& date) {
    if (kind == 1) return JulianMonthLength(date.year, date.month);
    if (kind == 2 && DayOfJulian(CivilDate{date.year, date.month, 1}) < kWesternReformStarDay) {
        return date.year == 1582 && date.month == 10 ? 31 : JulianMonthLength(date.year, date.month);
    }
    return GregorianMonthLength(date.year, date.month);
}

CivilCheck Fail(std::string error) { return CivilCheck{std::nullopt, std::move(error)}; }

CivilCheck CheckHebrew(int kind, const CivilTime& civil) {
    CivilDate date{civil.year, civil.month, civil.day};
    // Kind 3 counts its leap years one year later.
    const bool leap = kind == 4 ? HebrewLeapYear(civil.year) : HebrewLeapYear(civil.year - 1);
    const std::string yearText = std::to_string(civil.year);
    if (kind == 4 && civil.year < 1) return Fail("before the Hebrew epoch (the Hebrew calendar starts with year 1)");
    if (!civil.monthName.empty()) {
        date.month = -1;
        for (const HebrewMonthWord& word : kHebrewMonthWords) {
            if (word.word == civil.monthName) date.month = word.month;
        }
        if (date.month < 0) return Fail("unknown Hebrew month name");
        if (date.month == 0 && leap) {
            return Fail("Adar is ambiguous in " + yearText + ", a leap year: name Adar I or Adar II");
        }
        if (date.month == 0) date.month = 12;
        if (!leap && date.month >= 12 && civil.monthName != "adar") {
            return Fail(yearText + " is a 12-month year with one Adar: name it Adar");
        }
    }
    if (date.month == 13 && !leap) return Fail(yearText + " has no Adar II (a 12-month year)");
    if (kind == 4) {
        const int length = HebrewMonthLength(date.year, date.month);
        if (date.day > length) return Fail(MonthLengthError(kind, date, length));
    } else if (date.day > 30) {
        return Fail("day out of range (1 to 30)");
    }
    return CivilCheck{date, {}};
}

}  // namespace

CivilCheck CheckCivilDate(int kind, const CivilTime& civil) {
    if (kind == 3 || kind == 4) return CheckHebrew(kind, civil);
    if (!civil.monthName.empty())
        return Fail("month names are read in the Hebrew calendars only: give the month as a number");
    const CivilDate date{civil.year, civil.month, civil.day};
    if (date.month > 12) return Fail("month out of range (1 to 12)");
    if (kind == 2 && InWesternReformGap(date)) {
        return Fail("5 to 14 October 1582 do not exist in the Western calendar (4 October was followed by 15 October)");
    }
    const int length = MonthLengthOfKind(kind, date);
    if (date.day > length) return Fail(MonthLengthError(kind, date, length));
    return CivilCheck{date, {}};
}

std::optional<YearMonth> ParseYearMonth(std::string_view text) {
    Scanner scan(text);
    YearMonth result;
    std::string error;
    if (!ParseYearAndMonth(scan, &result.year, &result.month, &result.monthName, &error) || !scan.AtEnd()) {
        return std::nullopt;
    }
    if (result.monthName.empty() && (result.month < 1 || result.month > 13)) return std::nullopt;
    return result;
}

}  // namespace timetool
