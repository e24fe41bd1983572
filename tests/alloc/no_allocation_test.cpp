// The Time component's ITime operations allocate nothing (kinds 5 and 6,
// which read their calendars from the registry, are outside this promise),
// and the memory each object holds is accounted for.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "counting_new.h"
#include "support/module_host.h"

namespace {

struct Operation {
    const char* name;
    std::function<void(ITime*)> call;
};

std::vector<Operation> TimeOperations() {
    return {
        {"GetDate",
         [](ITime* t) {
             short d, m, y;
             t->GetDate(&d, &m, &y);
         }},
        {"GetTime",
         [](ITime* t) {
             short h, m;
             double s;
             t->GetTime(&h, &m, &s);
         }},
        {"SetDate", [](ITime* t) { t->SetDate(400, 1, 2023); }},
        {"SetDate negative month", [](ITime* t) { t->SetDate(10, -1, 2024); }},
        {"SetTime", [](ITime* t) { t->SetTime(25, 99, 75.0); }},
        {"Reset utc", [](ITime* t) { t->Reset(1); }},
        {"Reset local", [](ITime* t) { t->Reset(0); }},
        {"GetElapsedTime utc",
         [](ITime* t) {
             double s;
             t->GetElapsedTime(&s, 1);
         }},
        {"GetElapsedTime local",
         [](ITime* t) {
             double s;
             t->GetElapsedTime(&s, 0);
         }},
        {"GetDayOfWeek", [](ITime* t) { t->GetDayOfWeek(); }},
        {"GetInfo",
         [](ITime* t) {
             short a, b, c, d;
             t->GetInfo(&a, &b, &c, &d);
         }},
        {"GetCalendarDays", [](ITime* t) { t->GetCalendarDays(); }},
        {"SetCalendarDays", [](ITime* t) { t->SetCalendarDays(739060.0); }},
        {"put_StarDate", [](ITime* t) { t->put_StarDate(0, 739060.25); }},
        {"put_StarDate julian date", [](ITime* t) { t->put_StarDate(1, 2451544.5); }},
        {"get_StarDate",
         [](ITime* t) {
             double v;
             t->get_StarDate(0, &v);
         }},
        {"get_StarDate julian date",
         [](ITime* t) {
             double v;
             t->get_StarDate(1, &v);
         }},
        {"UpdateStarDate", [](ITime* t) { t->UpdateStarDate(); }},
        {"put_Calendar", [](ITime* t) { t->put_Calendar(t->get_Calendar()); }},
        {"get_Calendar", [](ITime* t) { t->get_Calendar(); }},
        {"put_LinuxTime", [](ITime* t) { t->put_LinuxTime(86400.0); }},
        {"get_LinuxTime",
         [](ITime* t) {
             double s;
             t->get_LinuxTime(&s);
         }},
        {"get_SunTimes",
         [](ITime* t) {
             double r, s;
             t->get_SunTimes(&r, &s);
         }},
        {"get_MoonPhase",
         [](ITime* t) {
             float p;
             t->get_MoonPhase(&p);
         }},
        {"put_location", [](ITime* t) { t->put_location(10.0, 20.0); }},
        {"get_location",
         [](ITime* t) {
             double a, b;
             t->get_location(&a, &b);
         }},
        {"put_GMTOffset", [](ITime* t) { t->put_GMTOffset(2.0); }},
        {"get_GMTOffset",
         [](ITime* t) {
             double o = 0.0;
             t->get_GMTOffset(&o);
         }},
        {"AddRef and Release",
         [](ITime* t) {
             t->AddRef();
             t->Release();
         }},
    };
}

class TimeWithoutAllocation : public ::testing::TestWithParam<std::int32_t> {};

TEST_P(TimeWithoutAllocation, NoITimeOperationAllocates) {
    ModuleHost host;
    const IID iid = HostIID("ITime");
    const auto operations = TimeOperations();
    // One untimed pass on another object first: the C library allocates its
    // time-zone data on the first local-time conversion of the process.
    SmartPtr<ITime> warm = host.CreateTime<ITime>(iid);
    ASSERT_TRUE(warm);
    warm->put_Calendar(GetParam());
    for (const Operation& op : operations) op.call(warm.get());

    SmartPtr<ITime> time = host.CreateTime<ITime>(iid);
    ASSERT_TRUE(time);
    time->put_Calendar(GetParam());
    time->put_StarDate(0, 739060.0);
    for (const Operation& op : operations) {
        const alloc_count::Window window;
        op.call(time.get());
        EXPECT_EQ(window.Delta().allocations, 0) << op.name << " in kind " << GetParam();
    }
}

// Kinds 0 to 4 and an unknown kind (converted as Gregorian).
INSTANTIATE_TEST_SUITE_P(CalendarKinds, TimeWithoutAllocation, ::testing::Values(0, 1, 2, 3, 4, 9));

TEST(MemoryFigures, TimeObjectIsOneBlockFreedByFinalRelease) {
    ModuleHost host;
    const IID iid = HostIID("ITime");
    SmartPtr<ITime> first = host.CreateTime<ITime>(iid);  // any one-time set-up of the factory happens here
    const alloc_count::Window window;
    ITime* time = nullptr;
    {
        SmartPtr<ITime> created = host.CreateTime<ITime>(iid);
        ASSERT_TRUE(created);
        const alloc_count::Totals held = window.Delta();
        EXPECT_EQ(held.allocations, 1);
        std::printf("memory: Time object %lld bytes\n", static_cast<long long>(held.liveBytes));
        time = created.get();
        EXPECT_EQ(time->AddRef(), 2);
        EXPECT_EQ(time->Release(), 1);
    }
    EXPECT_EQ(window.Delta().liveBytes, 0);
}

// A DblBuffer holds its object plus exactly 8 bytes per slot of capacity;
// capacity 0 holds no array at all.
TEST(MemoryFigures, DblBufferHoldsEightBytesPerSlot) {
    ModuleHost host;
    const IID iid = HostIID("IDblVector");
    SmartPtr<IDblVector> first = host.CreateDblBuffer<IDblVector>(iid);
    auto bytesAtCapacity = [&](std::int32_t capacity) {
        const alloc_count::Window window;
        SmartPtr<IDblVector> vector = host.CreateDblBuffer<IDblVector>(iid);
        EXPECT_TRUE(vector);
        if (!vector) return std::int64_t{0};
        EXPECT_EQ(vector->put_Size(capacity), S_OK);
        return window.Delta().liveBytes;
    };
    const std::int64_t empty = bytesAtCapacity(0);
    std::printf("memory: DblBuffer capacity 0: %lld bytes\n", static_cast<long long>(empty));
    for (std::int32_t capacity : {1, 32, 1024, 4096, 65536}) {
        const std::int64_t bytes = bytesAtCapacity(capacity);
        std::printf("memory: DblBuffer capacity %d: %lld bytes\n", capacity, static_cast<long long>(bytes));
        EXPECT_EQ(bytes - empty, 8 * std::int64_t{capacity}) << "capacity " << capacity;
    }
}

}  // namespace
