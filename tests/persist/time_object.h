// A Time component made by the module code linked into a unit test, and a
// scope that puts another global collection in place of the kit's.
#pragma once

#include <gtest/gtest.h>

#include "base/iids.h"
#include "kit_environment.h"
#include "time/calendar_component.h"

namespace persist_test {

template <class I>
SmartPtr<I> NewTime(const IID& iid) {
    SmartPtr<I> result;
    CObject<CCalendar>::_CreateInstance(nullptr, &iid, result.put_void());
    return result;
}

template <class I, class From>
SmartPtr<I> Ask(From* object, const IID& iid) {
    SmartPtr<I> result;
    if (object) object->QueryInterface(iid, result.put_void());
    return result;
}

// 5 March 2024 10:20:30.5 (Gregorian).
inline SmartPtr<ITime> NewSampleTime() {
    SmartPtr<ITime> time = NewTime<ITime>(IID_ITime);
    if (time) {
        time->SetDate(5, 3, 2024);
        time->SetTime(10, 20, 30.5);
    }
    return time;
}

struct TimeFields {
    short day = 0, month = 0, year = 0, hour = 0, minute = 0;
    double second = 0.0;
    double starDate = 0.0;
};

inline TimeFields ReadFields(ITime* time) {
    TimeFields fields;
    time->GetDate(&fields.day, &fields.month, &fields.year);
    time->GetTime(&fields.hour, &fields.minute, &fields.second);
    time->get_StarDate(0, &fields.starDate);
    return fields;
}

inline void ExpectFields(const TimeFields& fields, short day, short month, short year, short hour, short minute,
                         double second) {
    EXPECT_EQ(fields.day, day);
    EXPECT_EQ(fields.month, month);
    EXPECT_EQ(fields.year, year);
    EXPECT_EQ(fields.hour, hour);
    EXPECT_EQ(fields.minute, minute);
    EXPECT_EQ(fields.second, second);
}

// Star date of 5 March 2024 10:20:30.5: day 738952 plus 37230.5 of 86400 seconds.
inline constexpr double kSampleStarDate = 738952.4309085648;

class ScopedGlobalCollection {
public:
    explicit ScopedGlobalCollection(IComponentCollection* replacement) { InitializeModule(nullptr, replacement); }
    ScopedGlobalCollection(const ScopedGlobalCollection&) = delete;
    ScopedGlobalCollection& operator=(const ScopedGlobalCollection&) = delete;
    ~ScopedGlobalCollection() { InitializeModule(nullptr, Kit()); }
};

}  // namespace persist_test
