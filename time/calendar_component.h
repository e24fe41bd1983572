// CCalendar: the "Time" component. One instant in one calendar system.
#pragma once

#include "base/object.h"
#include "calendar/datetime.h"
#include "com_types.h"
#include "module_interfaces.h"
#include "persist/parametric_persist.h"

class CCalendar final : public CObject<CCalendar>,
                        public IObjectInfoImpl<CCalendar>,
                        public ITime,
                        public IUIPropertyPageSpecify,
                        public IDataPersistParametricImpl<CCalendar> {
public:
    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // ITime
    HRESULT GetDate(short* day, short* month, short* year) override;
    HRESULT GetTime(short* hour, short* minute, double* second) override;
    HRESULT SetDate(short day, short month, short year) override;
    HRESULT SetTime(short hour, short minute, double second) override;
    HRESULT Reset(short utc) override;
    HRESULT GetElapsedTime(double* seconds, short utc) override;
    std::int32_t GetDayOfWeek() override;
    HRESULT GetInfo(short* daysInMonth, short* monthsInYear, short* daysInYear, short* yearAdjust) override;
    double GetCalendarDays() override;
    HRESULT SetCalendarDays(double days) override;
    HRESULT put_StarDate(std::int32_t mode, double value) override;
    HRESULT get_StarDate(std::int32_t mode, double* value) override;
    HRESULT UpdateStarDate() override;
    HRESULT put_Calendar(std::int32_t kind) override;
    std::int32_t get_Calendar() override;
    HRESULT get_LinuxTime(double* seconds) override;
    HRESULT put_LinuxTime(double seconds) override;
    HRESULT get_SunTimes(double* sunrise, double* sunset) override;
    HRESULT get_MoonPhase(float* phase) override;
    HRESULT put_location(double latitude, double longitude) override;
    HRESULT get_location(double* latitude, double* longitude) override;
    HRESULT put_GMTOffset(double offset) override;
    HRESULT get_GMTOffset(double* offset) override;

    // IUIPropertyPageSpecify
    HRESULT GetPages(std::int32_t reserved, INamedCollection** pages, IUnknown** site) override;

    // IParametricObject
    HRESULT GetParameters(INamedCollection** parameters, std::int32_t reserved) override;
    HRESULT SetParameters(INamedCollection* parameters) override;

private:
    friend class CObject<CCalendar>;
    CCalendar() = default;
    ~CCalendar() = default;

    tagDATETIME m_dateTime;       // the instant in the selected calendar
    double m_starDate = 0.0;      // the same instant as a day count
    std::int32_t m_kind = 0;      // calendar kind, 0 = Gregorian
    double m_longitude = 83.045;  // degrees, positive towards the west
    double m_latitude = 43.3;     // degrees, positive towards the north
    double m_sunrise = -1.0;      // result caches; -1.0 = not computed
    double m_sunset = -1.0;
    double m_moonPhase = -1.0;
};

template <>
const tagREFString IObjectInfoImpl<CCalendar>::m_ObjectName;
