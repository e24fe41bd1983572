#include <charconv>
#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"
#include "quoted_text.h"
#include "tool_error.h"
#include "vector_listener.h"

namespace timetool {

namespace {

struct WindowOptions {
    std::string capacity;
    bool events = false;
    bool json = false;
};

double RequireNumber(const std::string& word) {
    double value = 0.0;
    const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (ec != std::errc() || end != word.data() + word.size() || !std::isfinite(value)) {
        throw ToolError{kExitBadInput, "timetool: bad number " + QuoteArgument(word) + " on standard input"};
    }
    return value;
}

std::string NumberText(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    // The shortest of the exact forms reads best.
    for (int digits = 1; digits <= 17; ++digits) {
        char shorter[64];
        std::snprintf(shorter, sizeof shorter, "%.*g", digits, value);
        if (std::strtod(shorter, nullptr) == value) return shorter;
    }
    return buffer;
}

Json EventsJson(const std::vector<VectorEvent>& events) {
    Json json = Json::array();
    for (const VectorEvent& event : events) {
        Json entry{{"event", event.name}};
        if (event.name == "ElementChanged") entry["index"] = event.index;
        json.push_back(entry);
    }
    return json;
}

void PrintEvents(const std::vector<VectorEvent>& events) {
    for (const VectorEvent& event : events) {
        std::cout << "event " << event.name;
        if (event.name == "ElementChanged") std::cout << " index " << event.index;
        std::cout << "\n";
    }
}

void RunWindow(const WindowOptions& options) {
    const int capacity = RequireCount("N", options.capacity, 1, 1000000);
    const ModuleSession session;
    SmartPtr<IDblVector> vector = session.Create<IDblVector>(L"DblBuffer", InterfaceId("IDblVector"));
    SmartPtr<IEventSource> source;
    SmartPtr<VectorListener> listener(VectorListener::Create());
    if (options.events) {
        CheckModule(vector->QueryInterface(InterfaceId("IEventSource"), source.put_void()), "DblBuffer IEventSource");
        CheckModule(source->Advise(listener.get(), 1), "IEventSource::Advise");
    }
    CheckModule(vector->put_Size(capacity), "IDblVector::put_Size");

    Json steps = Json::array();
    const std::vector<VectorEvent> startEvents = listener->TakeEvents();
    if (!options.json) PrintEvents(startEvents);
    std::string word;
    // Output that can no longer be written ends the reading too.
    while (std::cout && std::cin >> word) {
        const double value = RequireNumber(word);
        CheckModule(vector->put_Element(-1, value), "IDblVector::put_Element");
        std::int32_t count = 0;
        CheckModule(vector->get_Size(&count), "IDblVector::get_Size");
        Json window = Json::array();
        std::string text;
        for (std::int32_t age = 0; age < count; ++age) {
            double element = 0.0;
            CheckModule(vector->get_Element(age, &element), "IDblVector::get_Element");
            window.push_back(element);
            if (age > 0) text += ' ';
            text += NumberText(element);
        }
        const std::vector<VectorEvent> events = listener->TakeEvents();
        if (options.json) {
            Json step{{"value", value}, {"window", window}};
            if (options.events) step["events"] = EventsJson(events);
            steps.push_back(step);
        } else {
            PrintEvents(events);
            std::cout << text << "\n";
        }
    }
    if (source) source->Advise(listener.get(), 0);
    if (options.json) {
        Json json = JsonDocument();
        json["capacity"] = capacity;
        if (options.events) json["events"] = EventsJson(startEvents);
        json["steps"] = steps;
        std::cout << json.dump(2) << "\n";
    }
}

}  // namespace

void AddWindowCommand(CLI::App& app) {
    auto options = std::make_shared<WindowOptions>();
    CLI::App* command = app.add_subcommand(
        "window",
        "Read numbers from standard input into a DblBuffer of capacity N; print the window, oldest first, "
        "after each one");
    command->add_option("N", options->capacity, "capacity of the buffer, 1 to 1000000, in decimal")->required();
    command->add_flag("--events", options->events, "print every change notification the buffer sends");
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunWindow(*options); });
}

}  // namespace timetool
