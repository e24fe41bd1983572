#include "time/generic_calendar.h"

#include "base/counted_text.h"
#include "base/framework_binding.h"
#include "base/iids.h"
#include "calendar/registry_decimal.h"
#include "framework/conversions.h"
#include "framework/ref_string.h"
#include "time/conversions.h"

namespace {

// Offsets for the three registry outcomes: a failed query leaves the
// calendar on the Gregorian elapsed count; a missing or empty value puts
// 1 January AD 1 on day 0.
constexpr double kFailedQueryOffset = 0.0;
constexpr double kMissingValueOffset = -1.0;

// The stored value is the day number of 1 January AD 1 of the named
// calendar; the offset is that value - 1.
double EpochOffsetFromText(const tagREFString& text) {
    if (text.length <= 0 || text.string == nullptr) return kMissingValueOffset;
    if (text.string[0] == L'#') return _IS2Integer(CREFString(text.string, text.length), 10) - 1.0;
    return cal::ReadRegistryDecimal(text.string, text.length) - 1.0;
}

// Without a collection, a registry or a name there is nothing to query; the
// calendar then behaves as after a failed query.
double ReadEpochOffset(IString* name) {
    if (name == nullptr) return kFailedQueryOffset;
    SmartPtr<IComponentCollection> collection(GLOBALComponents());
    if (!collection) return kFailedQueryOffset;
    SmartPtr<IRegistry> registry;
    constexpr tagREFString kRegistry = CountedText(L"Registry");
    if (FAILED(collection->GetComponent(kRegistry.length, kRegistry.string, &IID_IRegistry, registry.put_void())) ||
        !registry) {
        return kFailedQueryOffset;
    }
    SmartPtr<IString> section(ISCreate(L"Calendar"));
    if (!section) return kFailedQueryOffset;
    SmartPtr<IString> value;
    if (FAILED(registry->GetValue(section.get(), name, value.put()))) return kFailedQueryOffset;
    if (!value) return kMissingValueOffset;
    tagREFString text{0, nullptr};
    if (FAILED(value->GetString(&text))) return kMissingValueOffset;
    return EpochOffsetFromText(text);
}

// The calendar of one conversion, named by a fresh string released as soon
// as the calendar holds it.
class NamedCalendar {
public:
    explicit NamedCalendar(const wchar_t* name) : m_calendar(SmartPtr<IString>(ISCreate(name)).get()) {}
    CGenericCalendar& operator*() { return m_calendar; }
    CGenericCalendar* operator->() { return &m_calendar; }

private:
    CGenericCalendar m_calendar;
};

double NamedToJDN(const wchar_t* name, const tagDATETIME* date) {
    NamedCalendar calendar(name);
    static_cast<tagDATETIME&>(*calendar) = *date;
    static_cast<tagDATETIME&>(*calendar->Inner()) = *date;
    return calendar->Inner()->GetEllapsedDays() + calendar->EpochOffset();
}

HRESULT JDNtoNamed(const wchar_t* name, double jdn, tagDATETIME* out) {
    NamedCalendar calendar(name);
    calendar->SetEllapsedDays(jdn);
    out->Year = calendar->Year;
    out->Month = calendar->Month;
    out->Day = calendar->Day;
    return S_OK;
}

}  // namespace

CGenericCalendar::CGenericCalendar(IString* name) : m_inner(new CGregorian()), m_name(name) {
    if (m_name) m_name->AddRef();
    m_epochOffset = ReadEpochOffset(m_name);
}

CGenericCalendar::~CGenericCalendar() {
    delete m_inner;
    if (m_name) m_name->Release();
}

void CGenericCalendar::CopyInnerDate() { static_cast<tagDATETIME&>(*this) = *m_inner; }

int CGenericCalendar::GetYearDay() { return m_inner->GetYearDay(); }

void CGenericCalendar::SetYearDay(int) {
    m_inner->SetYearDay(Year);
    CopyInnerDate();
}

int CGenericCalendar::DaysInMonth(int month) { return m_inner->DaysInMonth(month); }

double CGenericCalendar::GetEllapsedDays() { return m_inner->GetEllapsedDays() + m_epochOffset; }

void CGenericCalendar::SetEllapsedDays(double days) {
    m_inner->SetEllapsedDays(days - m_epochOffset);
    CopyInnerDate();
}

short CGenericCalendar::DaysInYear() { return m_inner->DaysInYear(); }

double AdamToJDN(const tagDATETIME* date) { return NamedToJDN(L"SDAdam", date); }
HRESULT JDNtoAdam(double jdn, tagDATETIME* out) { return JDNtoNamed(L"SDAdam", jdn, out); }
double GenericToJDN(const tagDATETIME* date) { return NamedToJDN(L"SDGeneric", date); }
HRESULT JDNtoGeneric(double jdn, tagDATETIME* out) { return JDNtoNamed(L"SDGeneric", jdn, out); }
