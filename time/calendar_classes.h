// Calendar classes: a date record with the month, year and elapsed-day
// arithmetic of one calendar. The slot order of the virtual operations is
// fixed; stored objects and the Time component depend on it.
#pragma once

#include "calendar/datetime.h"
#include "com_types.h"
#include "framework_interfaces.h"

class CBaseCalendar : public tagDATETIME {
public:
    CBaseCalendar() = default;
    CBaseCalendar(const CBaseCalendar&) = default;
    CBaseCalendar& operator=(const CBaseCalendar&) = default;

    // Sum of the lengths of months 1 .. Month-1 of the own year, plus Day.
    virtual int GetYearDay() = 0;
    // Month and Day from a year-day; Year is not changed.
    virtual void SetYearDay(int n) = 0;
    // Month length; months outside 1..12 have 30 days.
    virtual int DaysInMonth(int month) = 0;
    virtual double GetEllapsedDays() = 0;
    // Day, Month and Year from an elapsed-day count; time fields untouched.
    virtual void SetEllapsedDays(double days) = 0;
    virtual short DaysInYear() = 0;
    virtual ~CBaseCalendar();
    // The date record to and from a stream, in the format of every date record.
    virtual HRESULT Save(IDataStream* stream, int flags);
    virtual HRESULT Load(IDataStream* stream, int flags);
};

// Proleptic Gregorian rules. Elapsed days: 1 January AD 1 is 1.
class CGregorian final : public CBaseCalendar {
public:
    int GetYearDay() override;
    void SetYearDay(int n) override;
    int DaysInMonth(int month) override;
    double GetEllapsedDays() override;
    void SetEllapsedDays(double days) override;
    short DaysInYear() override;
};

// Julian rules. Elapsed days: 1 January AD 1 is 1.
class CJulian final : public CBaseCalendar {
public:
    int GetYearDay() override;
    void SetYearDay(int n) override;
    int DaysInMonth(int month) override;
    // Year 0 is read as 1 BC and is left at -1 afterwards; callers rely on it.
    double GetEllapsedDays() override;
    void SetEllapsedDays(double days) override;
    short DaysInYear() override;
};
