// CDateTimer: a date-time record filled from the system clock or a Linux time
// stamp.
#pragma once

#include <sys/stat.h>

#include <cstdint>

#include "calendar/datetime.h"
#include "com_types.h"

struct IDataStream;

class CDateTimer : public tagDATETIME {
public:
    CDateTimer() = default;

    // Reads the clock into LinuxTime and the local broken-down time, weekday
    // 1 (Sunday) .. 7 (Saturday).
    virtual void Reset();
    // Local broken-down time of t; the weekday and LinuxTime are left alone.
    virtual void SetLinuxTime(long t);
    // UTC by the component's own arithmetic (no time zone). Inside a leap year
    // the result is one day early (1 January 1972 gives day 0 of month 1);
    // stored dates depend on it. Weekday and LinuxTime are left alone; a null
    // pointer changes nothing.
    virtual void SetLinuxTime(struct statx_timestamp* ts);
    // The seven date-time fields to and from a framework stream.
    virtual HRESULT Save(IDataStream* stream, std::int32_t flags);
    virtual HRESULT Load(IDataStream* stream, std::int32_t flags);
    virtual ~CDateTimer() = default;

    std::int64_t LinuxTime = 0;  // seconds since 1970-01-01 00:00 UTC; 0 when unused
};
