#include "inputs.h"

#include <hdate.h>

#include <date/date.h>
#include <date/julian.h>

#include <random>

#include "module_loader.h"

namespace bench {
namespace {

CivilDate Civil(int day, unsigned month, int year) {
    return {static_cast<std::int16_t>(day), static_cast<std::int16_t>(month), static_cast<std::int16_t>(year)};
}

DateInputs Make(int firstYear, int lastYear, unsigned seed) {
    using namespace date;
    const auto first = sys_days{year{firstYear} / January / 1}.time_since_epoch().count();
    const auto last = sys_days{year{lastYear} / December / 31}.time_since_epoch().count();
    std::mt19937 random(seed);  // fixed seed: every run converts the same instants
    std::uniform_int_distribution<int> pick(first, last);

    DateInputs in{};
    SmartPtr<ITime> hebrew = Module().CreateTime();
    hebrew->put_Calendar(4);
    for (std::size_t i = 0; i < kInputCount; ++i) {
        const int days = pick(random);
        const sys_days when{date::days{days}};
        in.daysSince1970[i] = days;
        in.starDate[i] = kStarDate1970 + days;
        in.julianDayNumber[i] = static_cast<std::int32_t>(in.starDate[i]) + kJdnMinusStarDate;

        const year_month_day g{when};
        in.gregorian[i] = Civil(static_cast<int>(unsigned(g.day())), unsigned(g.month()), int(g.year()));
        const julian::year_month_day j{when};
        in.julian[i] = Civil(static_cast<int>(unsigned(j.day())), unsigned(j.month()), int(j.year()));

        short d = 0, m = 0, y = 0;
        hebrew->put_StarDate(0, in.starDate[i]);
        hebrew->GetDate(&d, &m, &y);
        in.hebrewModule[i] = {d, m, y};

        int hd = 0, hm = 0, hy = 0, tishrey1 = 0, nextTishrey1 = 0;
        hdate_jd_to_hdate(in.julianDayNumber[i], &hd, &hm, &hy, &tishrey1, &nextTishrey1);
        in.hebrewHdate[i] = Civil(hd, static_cast<unsigned>(hm), hy);
    }
    return in;
}

}  // namespace

const DateInputs& Dates() {
    static const DateInputs inputs = Make(1, 3000, 20240621u);
    return inputs;
}

const DateInputs& SkyDates() {
    static const DateInputs inputs = Make(1900, 2100, 19000101u);
    return inputs;
}

}  // namespace bench
