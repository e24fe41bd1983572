// A fresh Time component per test, reached through ITime only.
#pragma once

#include <gtest/gtest.h>

#include "support/module_host.h"

struct ShortDate {
    short day;
    short month;
    short year;
    bool operator==(const ShortDate&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ShortDate& d) {
    return out << d.day << '/' << d.month << '/' << d.year;
}

struct ShortTime {
    short hour;
    short minute;
    double second;
    bool operator==(const ShortTime&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ShortTime& t) {
    return out << t.hour << ':' << t.minute << ':' << t.second;
}

class TimeHostTest : public ::testing::Test {
protected:
    void SetUp() override {
        time_ = host_.CreateTime<ITime>(HostIID("ITime"));
        ASSERT_TRUE(time_);
    }

    ITime* time() const { return time_.get(); }

    ShortDate Date() const {
        ShortDate d{-99, -99, -99};
        EXPECT_EQ(time_->GetDate(&d.day, &d.month, &d.year), S_OK);
        return d;
    }
    ShortTime Time() const {
        ShortTime t{-99, -99, -99.0};
        EXPECT_EQ(time_->GetTime(&t.hour, &t.minute, &t.second), S_OK);
        return t;
    }
    double StarDate() const {
        double value = -99.0;
        EXPECT_EQ(time_->get_StarDate(0, &value), S_OK);
        return value;
    }
    void SetStarDate(double value) const { ASSERT_EQ(time_->put_StarDate(0, value), S_OK); }
    void SetDate(short day, short month, short year) const { ASSERT_EQ(time_->SetDate(day, month, year), S_OK); }
    void SetKind(std::int32_t kind) const { ASSERT_EQ(time_->put_Calendar(kind), S_OK); }

    ModuleHost host_;
    SmartPtr<ITime> time_;
};
