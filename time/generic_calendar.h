// CGenericCalendar: a calendar named in the registry, with Gregorian months
// and years and its own epoch.
#pragma once

#include "framework_interfaces.h"
#include "time/calendar_classes.h"

// A named calendar with Gregorian months and years whose elapsed days are
// shifted by an epoch offset read from the registry (section "Calendar",
// key = name) at construction.
class CGenericCalendar final : public CBaseCalendar {
public:
    // Holds one reference on name for the object's life.
    explicit CGenericCalendar(IString* name);
    ~CGenericCalendar() override;
    CGenericCalendar(const CGenericCalendar&) = delete;
    CGenericCalendar& operator=(const CGenericCalendar&) = delete;

    int GetYearDay() override;
    // Passes the own Year, not n, to the inner calendar; kept for
    // compatibility with stored dates.
    void SetYearDay(int n) override;
    int DaysInMonth(int month) override;
    double GetEllapsedDays() override;
    void SetEllapsedDays(double days) override;
    short DaysInYear() override;

    double EpochOffset() const { return m_epochOffset; }
    CBaseCalendar* Inner() const { return m_inner; }

private:
    void CopyInnerDate();

    double m_epochOffset = 0.0;        // added to the inner calendar's elapsed days
    CBaseCalendar* m_inner = nullptr;  // owned; always a CGregorian
    IString* m_name = nullptr;         // one reference held
};
