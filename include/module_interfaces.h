// The interfaces served by the module's components, in their fixed slot order.
#pragma once

#include "com_types.h"
#include "framework_interfaces.h"

struct IObjectInfo : IUnknown {
    // The integer is ignored; *name receives a view of static text.
    virtual HRESULT GetName(std::int32_t reserved, tagREFString* name) = 0;
};

struct IDataPersist : IUnknown {
    virtual HRESULT Save(IDataStream* stream, std::int32_t flags) = 0;
    virtual HRESULT Load(IDataStream* stream, std::int32_t flags) = 0;
};

struct IParametricObject : IUnknown {
    virtual HRESULT GetParameters(INamedCollection** parameters, std::int32_t reserved) = 0;
    virtual HRESULT SetParameters(INamedCollection* parameters) = 0;
};

struct IUIPropertyPageSpecify : IUnknown {
    virtual HRESULT GetPages(std::int32_t reserved, INamedCollection** pages, IUnknown** site) = 0;
};

struct ITime : IUnknown {
    virtual HRESULT GetDate(short* day, short* month, short* year) = 0;       // 1
    virtual HRESULT GetTime(short* hour, short* minute, double* second) = 0;  // 2
    virtual HRESULT SetDate(short day, short month, short year) = 0;          // 3
    virtual HRESULT SetTime(short hour, short minute, double second) = 0;     // 4
    virtual HRESULT Reset(short utc) = 0;                                     // 5
    virtual HRESULT GetElapsedTime(double* seconds, short utc) = 0;           // 6
    virtual std::int32_t GetDayOfWeek() = 0;                                  // 7
    virtual HRESULT GetInfo(short* daysInMonth, short* monthsInYear, short* daysInYear,
                            short* yearAdjust) = 0;                         // 8
    virtual double GetCalendarDays() = 0;                                   // 9
    virtual HRESULT SetCalendarDays(double days) = 0;                       // 10
    virtual HRESULT put_StarDate(std::int32_t mode, double value) = 0;      // 11
    virtual HRESULT get_StarDate(std::int32_t mode, double* value) = 0;     // 12
    virtual HRESULT UpdateStarDate() = 0;                                   // 13
    virtual HRESULT put_Calendar(std::int32_t kind) = 0;                    // 14
    virtual std::int32_t get_Calendar() = 0;                                // 15
    virtual HRESULT get_LinuxTime(double* seconds) = 0;                     // 16
    virtual HRESULT put_LinuxTime(double seconds) = 0;                      // 17
    virtual HRESULT get_SunTimes(double* sunrise, double* sunset) = 0;      // 18
    virtual HRESULT get_MoonPhase(float* phase) = 0;                        // 19
    virtual HRESULT put_location(double latitude, double longitude) = 0;    // 20
    virtual HRESULT get_location(double* latitude, double* longitude) = 0;  // 21
    virtual HRESULT put_GMTOffset(double offset) = 0;                       // 22
    virtual HRESULT get_GMTOffset(double* offset) = 0;                      // 23
};

struct IDblVector : IUnknown {
    virtual HRESULT get_Size(std::int32_t* size) = 0;                    // 1
    virtual HRESULT put_Size(std::int32_t capacity) = 0;                 // 2
    virtual HRESULT get_Element(std::int32_t index, double* value) = 0;  // 3
    virtual HRESULT put_Element(std::int32_t index, double value) = 0;   // 4
    virtual HRESULT Sort(IDataStream* stream) = 0;                       // 5
    virtual HRESULT Save(IDataStream* stream) = 0;                       // 6
    virtual HRESULT Load(IDataStream* stream) = 0;                       // 7
};

// The listener interface of the vector's change events.
struct _IDblVectorEvent : IUnknown {
    virtual HRESULT SizeChanged(IDblVector* vector) = 0;
    virtual HRESULT ElementChanged(IDblVector* vector, std::int32_t index) = 0;
};

struct IEventSource : IUnknown {
    virtual HRESULT Advise(IUnknown* listener, std::int32_t mode) = 0;  // 1
    virtual std::int32_t GetAdviseCount() = 0;                          // 2
    virtual HRESULT GetAdviseItem(std::uint32_t index, IUnknown** listener,
                                  std::int32_t* mode) = 0;                              // 3
    virtual HRESULT Advise(IUnknown* listener, std::int32_t mode, const IID& iid) = 0;  // 4
};
