#include "time/calendar_classes.h"

#include "calendar/day_counts.h"
#include "calendar/month_rules.h"
#include "persist/datetime_stream.h"

CBaseCalendar::~CBaseCalendar() = default;

int CGregorian::GetYearDay() { return cal::YearDay(Day, Month, cal::GregorianLeap(Year)); }
void CGregorian::SetYearDay(int n) { cal::SetYearDay(n, cal::GregorianLeap(Year), &Day, &Month); }
int CGregorian::DaysInMonth(int month) { return cal::MonthLength(month, cal::GregorianLeap(Year)); }
double CGregorian::GetEllapsedDays() { return cal::GregorianElapsedDays(Day, Month, Year); }
void CGregorian::SetEllapsedDays(double days) { cal::GregorianDateFromCount(days, this); }
short CGregorian::DaysInYear() { return cal::GregorianLeap(Year) ? 366 : 365; }

int CJulian::GetYearDay() { return cal::YearDay(Day, Month, cal::JulianLeap(Year)); }
void CJulian::SetYearDay(int n) { cal::SetYearDay(n, cal::JulianLeap(Year), &Day, &Month); }
int CJulian::DaysInMonth(int month) { return cal::MonthLength(month, cal::JulianLeap(Year)); }
double CJulian::GetEllapsedDays() {
    if (Year == 0) Year = -1;
    return cal::JulianElapsedDays(Day, Month, Year);
}
void CJulian::SetEllapsedDays(double days) { cal::JulianDateFromCount(days, this); }
short CJulian::DaysInYear() { return cal::JulianLeap(Year) ? 366 : 365; }

// The integer argument is accepted for the stream interface's shape and ignored.
HRESULT CBaseCalendar::Save(IDataStream* stream, int /*flags*/) { return SaveDateTime(*this, stream); }
HRESULT CBaseCalendar::Load(IDataStream* stream, int /*flags*/) { return LoadDateTime(*this, stream); }
