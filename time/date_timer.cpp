#include "time/date_timer.h"

#include <cmath>
#include <ctime>

#include "calendar/month_rules.h"
#include "persist/datetime_stream.h"
#include "time/truncation.h"

namespace {

void StoreBrokenDown(const std::tm& tm, tagDATETIME& record) {
    record.Day = static_cast<std::int16_t>(tm.tm_mday);
    record.Month = static_cast<std::int16_t>(tm.tm_mon + 1);
    record.Year = static_cast<std::int16_t>(tm.tm_year + 1900);
    record.Hour = static_cast<std::int16_t>(tm.tm_hour);
    record.Minute = static_cast<std::int16_t>(tm.tm_min);
    record.Second = static_cast<float>(tm.tm_sec);
}

}  // namespace

void CDateTimer::Reset() {
    std::time_t now = std::time(nullptr);
    LinuxTime = now;
    if (const std::tm* tm = std::localtime(&now)) {
        StoreBrokenDown(*tm, *this);
        WeekDay = static_cast<std::int16_t>(tm->tm_wday + 1);
    }
}

void CDateTimer::SetLinuxTime(long t) {
    const std::time_t stamp = t;
    if (const std::tm* tm = std::localtime(&stamp)) StoreBrokenDown(*tm, *this);
}

void CDateTimer::SetLinuxTime(struct statx_timestamp* ts) {
    if (!ts) return;
    Day = 1;
    Month = 1;
    Year = 1970;
    Hour = 0;
    Minute = 0;
    Second = 0.0f;

    double s = static_cast<double>(ts->tv_sec);
    std::int32_t days = TruncateToInt32(std::floor(s / 86400.0));
    s -= days * 86400.0;
    const std::int32_t hour = TruncateToInt32(s / 3600.0);
    s -= hour * 3600.0;
    const std::int32_t minute = TruncateToInt32(s / 60.0);
    s -= minute * 60.0;

    // The length subtracted is that of the year entered, not of the year
    // left; stored dates depend on it.
    std::int32_t yearLength = 365;
    while (yearLength <= days) {
        Year = static_cast<std::int16_t>(Year + 1);
        yearLength = cal::YearLength(cal::GregorianLeap(Year));
        days -= yearLength;
    }
    const bool leap = cal::GregorianLeap(Year);
    const std::int32_t dayOfYear = days + 1;  // at most 366 after the year loop
    std::int32_t total = 31;
    std::int32_t before = 0;
    while (dayOfYear > total) {
        Month = static_cast<std::int16_t>(Month + 1);
        before = total;
        total += cal::MonthLength(Month, leap);
    }
    Day = static_cast<std::int16_t>(dayOfYear - before);

    Hour = static_cast<std::int16_t>(hour);
    Minute = static_cast<std::int16_t>(minute);
    Second = static_cast<float>(s);
    Second = static_cast<float>(Second + ts->tv_nsec / 1000000000.0);
}

// The integer argument is accepted for the stream interface's shape and ignored.
HRESULT CDateTimer::Save(IDataStream* stream, std::int32_t /*flags*/) { return SaveDateTime(*this, stream); }
HRESULT CDateTimer::Load(IDataStream* stream, std::int32_t /*flags*/) { return LoadDateTime(*this, stream); }
