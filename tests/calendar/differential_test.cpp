// Day numbers against independent peer libraries: the date library's
// proleptic Gregorian and Julian calendars for every day of years 1 to 3000,
// and libhdate's Hebrew calendar for every day of 1800 to 2200. Every
// disagreement is sorted into a class that follows from the conversion steps;
// each class has an exact count and nothing else may disagree.
#include <date/date.h>
#include <date/julian.h>
#include <gtest/gtest.h>
#include <hdate.h>

#include "calendar/day_numbers.h"
#include "calendar/hebrew.h"
#include "date_fields.h"
#include "time/conversions.h"

namespace {

// Day number of 1 January 1970 (Gregorian), the date library's day 0.
constexpr long kUnixEpochDayNumber = 719165;
// libhdate's Julian Day of a civil date minus our day number of it.
constexpr int kJulianDayShift = 1721423;

long DayNumberOf(date::sys_days day) { return day.time_since_epoch().count() + kUnixEpochDayNumber; }

Ymd PeerDate(const date::year_month_day& d) {
    return Ymd{static_cast<int>(d.year()), static_cast<int>(static_cast<unsigned>(d.month())),
               static_cast<int>(static_cast<unsigned>(d.day()))};
}
Ymd PeerDate(const julian::year_month_day& d) {
    return Ymd{static_cast<int>(d.year()), static_cast<int>(static_cast<unsigned>(d.month())),
               static_cast<int>(static_cast<unsigned>(d.day()))};
}

struct GregorianCounts {
    int days = 0;
    int toDayNumberOther = 0;
    int centuryEndMonth13 = 0;       // 31 Dec of 1700, 1800, 1900 ... -> day 1 of month 13
    int thirtiethDecemberOf400 = 0;  // 30 Dec of 400, 800 ... -> 31 Dec
    int fromDayNumberOther = 0;
};

TEST(DifferentialGregorian, EveryDayOfYears1To3000) {
    GregorianCounts counts;
    const date::sys_days first{date::year{1} / 1 / 1};
    const date::sys_days last{date::year{3000} / 12 / 31};
    for (date::sys_days day = first; day <= last; day += date::days{1}) {
        const Ymd peer = PeerDate(date::year_month_day{day});
        const long number = DayNumberOf(day);
        ++counts.days;
        const tagDATETIME record = MakeDate(peer.year, peer.month, peer.day);
        if (GregorianToJDN(&record) != static_cast<double>(number)) ++counts.toDayNumberOther;

        tagDATETIME out;
        JDNtoGregorian(static_cast<double>(number), &out);
        const Ymd ours = DateOf(out);
        if (ours == peer) continue;
        const bool centuryNot400 = peer.year % 100 == 0 && peer.year % 400 != 0;
        if (centuryNot400 && peer.month == 12 && peer.day == 31 && ours == Ymd{peer.year, 13, 1}) {
            ++counts.centuryEndMonth13;
        } else if (peer.year % 400 == 0 && peer.month == 12 && peer.day == 30 && ours == Ymd{peer.year, 12, 31}) {
            ++counts.thirtiethDecemberOf400;
        } else {
            ++counts.fromDayNumberOther;
            ADD_FAILURE() << number << ": peer " << peer << ", ours " << ours;
        }
    }
    EXPECT_EQ(counts.days, 1095727);
    EXPECT_EQ(counts.toDayNumberOther, 0);
    EXPECT_EQ(counts.centuryEndMonth13, 23);
    EXPECT_EQ(counts.thirtiethDecemberOf400, 7);
    EXPECT_EQ(counts.fromDayNumberOther, 0);
}

TEST(DifferentialJulian, EveryDayOfYears1To3000) {
    int days = 0;
    int toDayNumber = 0;
    int fromDayNumber = 0;
    const date::sys_days first{julian::year{1} / 1 / 1};
    const date::sys_days last{julian::year{3000} / 12 / 31};
    for (date::sys_days day = first; day <= last; day += date::days{1}) {
        const Ymd peer = PeerDate(julian::year_month_day{day});
        const long number = DayNumberOf(day);
        ++days;
        const tagDATETIME record = MakeDate(peer.year, peer.month, peer.day);
        if (JulianToJDN(&record) != static_cast<double>(number)) {
            ++toDayNumber;
            ADD_FAILURE() << peer << " -> " << JulianToJDN(&record) << ", peer " << number;
        }
        tagDATETIME out;
        JDNtoJulian(static_cast<double>(number), &out);
        if (DateOf(out) != peer) {
            ++fromDayNumber;
            ADD_FAILURE() << number << ": peer " << peer << ", ours " << DateOf(out);
        }
    }
    EXPECT_EQ(days, 1095750);
    EXPECT_EQ(toDayNumber, 0);
    EXPECT_EQ(fromDayNumber, 0);
}

// libhdate numbers months from Tishri (1..12, 6 = Adar, 13 = Adar I,
// 14 = Adar II); ours from Nisan (12 = Adar or Adar I, 13 = Adar II).
constexpr int kFromPeerMonth[15] = {0, 7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6, 12, 13};

TEST(DifferentialHebrew, EveryDayOf1800To2200WithFlag0) {
    int days = 0;
    int fromDayNumber = 0;
    int coarseExact = 0;  // HebrewToJDN hitting the day itself
    const date::sys_days first{date::year{1800} / 1 / 1};
    const date::sys_days last{date::year{2200} / 12 / 31};
    for (date::sys_days day = first; day <= last; day += date::days{1}) {
        const date::year_month_day civil{day};
        const long number = DayNumberOf(day);
        const int julianDay =
            hdate_gdate_to_jd(static_cast<int>(static_cast<unsigned>(civil.day())),
                              static_cast<int>(static_cast<unsigned>(civil.month())), static_cast<int>(civil.year()));
        ASSERT_EQ(julianDay, number + kJulianDayShift);
        int peerDay = 0, peerMonth = 0, peerYear = 0, tishri = 0, nextTishri = 0;
        hdate_jd_to_hdate(julianDay, &peerDay, &peerMonth, &peerYear, &tishri, &nextTishri);
        ASSERT_TRUE(peerMonth >= 1 && peerMonth <= 14);
        const Ymd peer{peerYear, kFromPeerMonth[peerMonth], peerDay};
        ++days;

        tagDATETIME out;
        JDNtoHebrew(static_cast<double>(number), &out, 0);
        if (DateOf(out) != peer) {
            ++fromDayNumber;
            ADD_FAILURE() << number << ": peer " << peer << ", ours " << DateOf(out);
        }
        const tagDATETIME record = MakeDate(peer.year, peer.month, peer.day);
        if (HebrewToJDN(&record, 0) == static_cast<double>(number)) ++coarseExact;
    }
    EXPECT_EQ(days, 146462);
    EXPECT_EQ(fromDayNumber, 0);
    // The mean-month count never lands on a whole day in this span.
    EXPECT_EQ(coarseExact, 0);
}

}  // namespace
