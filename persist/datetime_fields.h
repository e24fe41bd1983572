// Names and places of the persisted fields of a date-time record.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"

struct DateTimeIntegerField {
    const wchar_t* name;
    std::int16_t tagDATETIME::*field;
};

// XML element order. The weekday comes first in text and is never written in
// binary form; the second, a float, follows these in both forms.
inline constexpr DateTimeIntegerField kDateTimeTextFields[] = {
    {L"WeekDay", &tagDATETIME::WeekDay}, {L"Day", &tagDATETIME::Day},   {L"Month", &tagDATETIME::Month},
    {L"Year", &tagDATETIME::Year},       {L"Hour", &tagDATETIME::Hour}, {L"Minute", &tagDATETIME::Minute},
};
inline constexpr DateTimeIntegerField kDateTimeBinaryFields[] = {
    {L"Day", &tagDATETIME::Day},   {L"Month", &tagDATETIME::Month},   {L"Year", &tagDATETIME::Year},
    {L"Hour", &tagDATETIME::Hour}, {L"Minute", &tagDATETIME::Minute},
};
inline constexpr wchar_t kDateTimeSecondName[] = L"Second";
inline constexpr wchar_t kDateTimeElementName[] = L"DATETIME";
