// Building and comparing date records in calendar tests.
#pragma once

#include <cstdint>
#include <ostream>

#include "calendar/datetime.h"

struct Ymd {
    int year;
    int month;
    int day;
    friend bool operator==(const Ymd&, const Ymd&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Ymd& d) {
        return os << d.year << '-' << d.month << '-' << d.day;
    }
};

inline tagDATETIME MakeDate(int year, int month, int day, int hour = 0, int minute = 0, float second = 0.0f) {
    tagDATETIME d;
    d.Year = static_cast<std::int16_t>(year);
    d.Month = static_cast<std::int16_t>(month);
    d.Day = static_cast<std::int16_t>(day);
    d.Hour = static_cast<std::int16_t>(hour);
    d.Minute = static_cast<std::int16_t>(minute);
    d.Second = second;
    return d;
}

inline Ymd DateOf(const tagDATETIME& d) { return Ymd{d.Year, d.Month, d.Day}; }
