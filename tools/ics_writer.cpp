#include "ics_writer.h"

namespace timetool {

namespace {

// Octets on a line before its CRLF; folded lines lose one to the leading blank.
constexpr std::size_t kLineOctets = 75;

constexpr const char* kProductId = "-//timetool//Sun and moon events//EN";

bool IsUtf8Continuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

void AddLine(std::string& out, std::string_view name, std::string_view value) {
    std::string line(name);
    line += ':';
    line += value;
    out += FoldCalendarLine(line);
}

}  // namespace

std::string FormatCalendarDateTime(const ExactInstant& instant) {
    std::string text = FormatUtcIso(instant);
    std::erase_if(text, [](char c) { return c == '-' || c == ':'; });
    return text;
}

std::string EscapeCalendarText(std::string_view text) {
    std::string escaped;
    for (char c : text) {
        if (c == '\\' || c == ';' || c == ',') {
            escaped += '\\';
            escaped += c;
        } else if (c == '\n') {
            escaped += "\\n";
        } else if (c != '\r') {
            escaped += c;
        }
    }
    return escaped;
}

std::string FoldCalendarLine(std::string_view line) {
    std::string folded;
    std::size_t room = kLineOctets;
    while (line.size() > room) {
        std::size_t cut = room;
        while (cut > 0 && IsUtf8Continuation(line[cut])) --cut;
        folded.append(line.substr(0, cut));
        folded += "\r\n ";
        line.remove_prefix(cut);
        room = kLineOctets - 1;
    }
    folded.append(line);
    folded += "\r\n";
    return folded;
}

std::string WriteCalendar(const std::vector<CalendarEvent>& events) {
    std::string out;
    AddLine(out, "BEGIN", "VCALENDAR");
    AddLine(out, "VERSION", "2.0");
    AddLine(out, "PRODID", kProductId);
    AddLine(out, "CALSCALE", "GREGORIAN");
    for (const CalendarEvent& event : events) {
        const std::string start = FormatCalendarDateTime(event.start);
        AddLine(out, "BEGIN", "VEVENT");
        AddLine(out, "UID", EscapeCalendarText(event.uid));
        AddLine(out, "DTSTAMP", start);
        AddLine(out, "DTSTART", start);
        AddLine(out, "SUMMARY", EscapeCalendarText(event.summary));
        if (!event.description.empty()) AddLine(out, "DESCRIPTION", EscapeCalendarText(event.description));
        if (!event.geo.empty()) AddLine(out, "GEO", event.geo);
        // A moment in the sky does not make anyone busy.
        AddLine(out, "TRANSP", "TRANSPARENT");
        AddLine(out, "END", "VEVENT");
    }
    AddLine(out, "END", "VCALENDAR");
    return out;
}

}  // namespace timetool
