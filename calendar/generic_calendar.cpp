#include "calendar/generic_calendar.h"

#include "calendar/calendar_classes.h"
#include "calendar/registry_decimal.h"
#include "framework/conversions.h"
#include "framework/ref_string.h"
#include "module/entry.h"
#include "module/iids.h"

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
    if (FAILED(collection->GetComponent(8, L"Registry", &IID_IRegistry, registry.put_void())) || !registry) {
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
    explicit NamedCalendar(const wchar_t* name) : calendar_(SmartPtr<IString>(ISCreate(name)).get()) {}
    CGenericCalendar& operator*() { return calendar_; }
    CGenericCalendar* operator->() { return &calendar_; }

private:
    CGenericCalendar calendar_;
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

CGenericCalendar::CGenericCalendar(IString* name) : inner_(new CGregorian()), name_(name) {
    if (name_) name_->AddRef();
    epochOffset_ = ReadEpochOffset(name_);
}

CGenericCalendar::~CGenericCalendar() {
    delete inner_;
    if (name_) name_->Release();
}

void CGenericCalendar::CopyInnerDate() { static_cast<tagDATETIME&>(*this) = *inner_; }

int CGenericCalendar::GetYearDay() { return inner_->GetYearDay(); }

void CGenericCalendar::SetYearDay(int) {
    inner_->SetYearDay(Year);
    CopyInnerDate();
}

int CGenericCalendar::DaysInMonth(int month) { return inner_->DaysInMonth(month); }

double CGenericCalendar::GetEllapsedDays() { return inner_->GetEllapsedDays() + epochOffset_; }

void CGenericCalendar::SetEllapsedDays(double days) {
    inner_->SetEllapsedDays(days - epochOffset_);
    CopyInnerDate();
}

short CGenericCalendar::DaysInYear() { return inner_->DaysInYear(); }

double AdamToJDN(const tagDATETIME* date) { return NamedToJDN(L"SDAdam", date); }
HRESULT JDNtoAdam(double jdn, tagDATETIME* out) { return JDNtoNamed(L"SDAdam", jdn, out); }
double GenericToJDN(const tagDATETIME* date) { return NamedToJDN(L"SDGeneric", date); }
HRESULT JDNtoGeneric(double jdn, tagDATETIME* out) { return JDNtoNamed(L"SDGeneric", jdn, out); }
