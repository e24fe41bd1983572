#include "when.h"

#include <charconv>
#include <cmath>
#include <cstddef>

namespace timetool {

namespace {

// A cursor over the text; every read checks the remaining length.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    bool AtEnd() const { return pos_ >= text_.size(); }
    bool Peek(char c) const { return pos_ < text_.size() && text_[pos_] == c; }
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
    // One to `most` decimal digits.
    bool SomeDigits(std::size_t most, int* value) {
        std::size_t n = 0;
        while (pos_ + n < text_.size() && n < most && text_[pos_ + n] >= '0' && text_[pos_ + n] <= '9') ++n;
        if (n == 0) return false;
        return Digits(n, value);
    }
    // A fraction ".ddd" as a value in [0, 1).
    bool Fraction(double* value) {
        if (!Take('.')) return false;
        double scale = 0.1;
        double result = 0.0;
        std::size_t n = 0;
        while (pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9') {
            if (n < 9) result += scale * (text_[pos_] - '0');  // finer digits add nothing a float keeps
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

WhenParse Accept(When when) { return WhenParse{when, {}}; }

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
    if (std::fabs(starDate) > kMaxStarDate) return Refuse("outside the supported range of years");
    When when;
    when.form = form;
    when.value = value;
    return Accept(when);
}

WhenParse ParseCivil(std::string_view text) {
    Scanner scan(text);
    CivilTime civil;
    const bool negative = scan.Take('-');
    int year = 0;
    if (!scan.SomeDigits(5, &year) || !scan.Take('-')) return Refuse("expected YYYY-MM-DD");
    if (!scan.Digits(2, &civil.month) || !scan.Take('-') || !scan.Digits(2, &civil.day)) {
        return Refuse("expected YYYY-MM-DD");
    }
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
    }
    scan.Take('Z');
    if (!scan.AtEnd()) return Refuse("unexpected characters after the date");
    if (year == 0) return Refuse("there is no year 0 (1 BC is -1)");
    if (year > 32767) return Refuse("year out of range (-32767 to 32767)");
    civil.year = negative ? -year : year;
    if (civil.month < 1 || civil.month > 13) return Refuse("month out of range");
    if (civil.day < 1 || civil.day > 31) return Refuse("day out of range");
    if (civil.hour > 23) return Refuse("hour out of range");
    if (civil.minute > 59) return Refuse("minute out of range");
    if (civil.second >= 60.0) return Refuse("second out of range");
    When when;
    when.form = WhenForm::Civil;
    when.civil = civil;
    return Accept(when);
}

}  // namespace

WhenParse ParseWhen(std::string_view text) {
    if (text == "now") return Accept(When{WhenForm::Now, {}, 0.0});
    if (text == "today") return Accept(When{WhenForm::Today, {}, 0.0});
    if (text.starts_with("sd:")) return ParseNumbered(text.substr(3), WhenForm::StarDate);
    if (text.starts_with("jd:")) return ParseNumbered(text.substr(3), WhenForm::JulianDate);
    if (text.starts_with("@")) return ParseNumbered(text.substr(1), WhenForm::LinuxTime);
    if (text.empty()) return Refuse("empty");
    return ParseCivil(text);
}

}  // namespace timetool

namespace timetool {

namespace {

// The year whose leap rule applies: BC years count by their complement
// (1 BC as 0, 5 BC as 4), the way the day-number conversions read them.
int LeapRuleYear(int year) { return year < 0 ? -year - 1 : year; }

int MonthLength(bool gregorian, int year, int month) {
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month != 2) return kDays[month - 1];
    const int y = LeapRuleYear(year);
    const bool leap = gregorian ? (y % 4 == 0 && (y % 100 != 0 || y % 400 == 0)) : (y % 4 == 0);
    return leap ? 29 : 28;
}

}  // namespace

std::string CivilDateError(int kind, const CivilTime& civil) {
    if (kind == 3 || kind == 4) {
        if (civil.month < 1 || civil.month > 13) return "month out of range (1 to 13)";
        if (civil.day < 1 || civil.day > 30) return "day out of range (1 to 30)";
        return {};
    }
    if (civil.month < 1 || civil.month > 12) return "month out of range (1 to 12)";
    if (civil.day < 1 || civil.day > MonthLength(kind != 1, civil.year, civil.month))
        return "no such day in that month";
    return {};
}

std::optional<YearMonth> ParseYearMonth(std::string_view text) {
    Scanner scan(text);
    const bool negative = scan.Take('-');
    YearMonth result;
    int year = 0;
    if (!scan.SomeDigits(5, &year) || !scan.Take('-') || !scan.Digits(2, &result.month) || !scan.AtEnd()) {
        return std::nullopt;
    }
    if (year == 0 || year > 32767 || result.month < 1 || result.month > 13) return std::nullopt;
    result.year = negative ? -year : year;
    return result;
}

}  // namespace timetool
