// The Time component's parameter set and property page.
#include <cwchar>
#include <cwctype>
#include <limits>

#include "base/iids.h"
#include "base/no_throw.h"
#include "base/query.h"
#include "framework/conversions.h"
#include "framework/property_pages.h"
#include "framework/ref_string.h"
#include "persist/parameter_set.h"
#include "time/calendar_component.h"

static_assert(std::numeric_limits<float>::is_iec559);  // narrowing the second is defined for every double

namespace {

struct IntegerParameter {
    const wchar_t* name;
    std::int16_t tagDATETIME::*read;     // field shown under the name
    std::int16_t tagDATETIME::*written;  // field a set entry goes to
};

// In the order of the set. "Year" is written into the month, after "Month":
// stored parameter sets and their readers depend on that, so the year is
// never changed by SetParameters.
constexpr IntegerParameter kIntegerParameters[] = {
    {L"Day", &tagDATETIME::Day, &tagDATETIME::Day},          {L"Month", &tagDATETIME::Month, &tagDATETIME::Month},
    {L"Year", &tagDATETIME::Year, &tagDATETIME::Month},      {L"Hour", &tagDATETIME::Hour, &tagDATETIME::Hour},
    {L"Minute", &tagDATETIME::Minute, &tagDATETIME::Minute},
};
constexpr wchar_t kSecondParameter[] = L"Second";
constexpr wchar_t kParametricPage[] = L"UIPropPages.UIParametricObjectPropPage";

SmartPtr<ICreatableString> NewText(const wchar_t* text, std::int32_t length) {
    SmartPtr<ICreatableString> result(CREFString::CreateString());
    if (result) result->SetString(length, text);
    return result;
}

SmartPtr<ICreatableString> NewText(const wchar_t* text) {
    return NewText(text, static_cast<std::int32_t>(std::wcslen(text)));
}

// False when a service is missing; the entry is then not added.
bool AddParameter(IParametersCreatable& set, const wchar_t* name, IVariant* value) {
    SmartPtr<ICreatableString> text = NewText(name);
    if (!text || !value) return false;
    set.AddParameter(text.get(), value, 0, 0);
    return true;
}

// The entry stored under name; null when absent.
SmartPtr<IUnknown> FindEntry(INamedCollection& set, const wchar_t* name) {
    SmartPtr<IUnknown> entry;
    SmartPtr<ICreatableString> text = NewText(name);
    if (!text) return entry;
    std::int32_t index = -1;
    if (FAILED(set.FindName(text.get(), &index))) return entry;
    if (FAILED(set.GetItem(index, entry.put()))) entry.detach();
    return entry;
}

// Leading blanks, control characters and stray byte-order-mark bytes (0xFE,
// 0xEF) come from texts typed or pasted into a property page.
bool IsSkippedBeforeSecond(wchar_t c) {
    const auto w = static_cast<wint_t>(c);
    return std::iswspace(w) || std::iswcntrl(w) || c == 0xFE || c == 0xEF;
}

// False when nothing is left to convert.
bool SecondFromText(IString& text, double* second) {
    tagREFString view{0, nullptr};
    if (FAILED(text.GetString(&view)) || view.length <= 0 || !view.string) return false;
    std::int32_t start = 0;
    while (start < view.length && IsSkippedBeforeSecond(view.string[start])) ++start;
    if (start == view.length) return false;
    *second = _IS2Double(CREFString(view.string + start, view.length - start));
    return true;
}

// A variant's number, or a text's; false for anything else.
bool ReadSecond(IUnknown& entry, double* second) {
    if (SmartPtr<IVariant> value = Query<IVariant>(&entry, IID_IVariant)) {
        *second = value->GetDouble();
        return true;
    }
    if (SmartPtr<IString> text = Query<IString>(&entry, IID_IString)) return SecondFromText(*text.get(), second);
    return false;
}

}  // namespace

HRESULT CCalendar::GetParameters(INamedCollection** parameters, std::int32_t /*reserved*/) {
    if (!parameters) return E_POINTER;
    *parameters = nullptr;
    return NoThrow([&] {
        SmartPtr<IParametersCreatable> set(CreateParameterSet());
        if (!set) return E_FAIL;
        for (const IntegerParameter& entry : kIntegerParameters) {
            SmartPtr<IVariant> value(CREFString::CreateVariant());
            if (value) value->SetInteger(m_dateTime.*entry.read);
            if (!AddParameter(*set.get(), entry.name, value.get())) return E_FAIL;
        }
        SmartPtr<IVariant> second(CREFString::CreateVariant());
        if (second) second->SetDouble(static_cast<double>(m_dateTime.Second));
        if (!AddParameter(*set.get(), kSecondParameter, second.get())) return E_FAIL;
        *parameters = set.detach();
        return S_OK;
    });
}

// Fields are written as found, without normalisation and without
// UpdateStarDate: the star date keeps describing the previous instant until
// the client updates it. A missing or unreadable entry keeps its field.
HRESULT CCalendar::SetParameters(INamedCollection* parameters) {
    if (!parameters) return E_POINTER;
    return NoThrow([&] {
        for (const IntegerParameter& entry : kIntegerParameters) {
            SmartPtr<IUnknown> item = FindEntry(*parameters, entry.name);
            if (!item) continue;
            if (SmartPtr<IVariant> value = Query<IVariant>(item.get(), IID_IVariant)) {
                m_dateTime.*entry.written = static_cast<std::int16_t>(value->GetInteger());
            }
        }
        double second = 0.0;
        SmartPtr<IUnknown> item = FindEntry(*parameters, kSecondParameter);
        if (item && ReadSecond(*item.get(), &second)) m_dateTime.Second = static_cast<float>(second);
        return S_OK;
    });
}

HRESULT CCalendar::GetPages(std::int32_t /*reserved*/, INamedCollection** pages, IUnknown** /*site*/) {
    return NewPropertyPages(pages, m_ObjectName, kParametricPage, PageThirdText::kComponentName);
}
