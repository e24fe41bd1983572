#include <charconv>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"
#include "module_window.h"
#include "number_text.h"
#include "quoted_text.h"
#include "rolling_stats.h"
#include "tool_error.h"
#include "vector_listener.h"

namespace timetool {

namespace {

struct WindowOptions {
    std::string capacity;
    std::string statistics;  // empty: print the whole window
    bool events = false;
    bool json = false;
};

// The words of standard input, read in blocks of a page: no call per word,
// and little read ahead of what has been printed when output stops.
class InputWords {
public:
    bool Next(std::string& word) {
        word.clear();
        while (true) {
            while (position_ < filled_) {
                const char c = buffer_[position_];
                if (c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
                    ++position_;
                    if (!word.empty()) return true;
                } else {
                    const std::size_t start = position_;
                    while (position_ < filled_ && !IsBlank(buffer_[position_])) ++position_;
                    word.append(buffer_.data() + start, position_ - start);
                }
            }
            filled_ = std::fread(buffer_.data(), 1, buffer_.size(), stdin);
            position_ = 0;
            if (filled_ == 0) return !word.empty();
        }
    }

private:
    static bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f' || c == '\v'; }

    std::vector<char> buffer_ = std::vector<char>(1 << 12);
    std::size_t filled_ = 0;    // bytes of buffer_ read, [0, buffer_.size()]
    std::size_t position_ = 0;  // next byte to look at, [0, filled_]
};

// Standard output gathered into large writes; what is gathered is written
// out on destruction too, so the lines before a bad number are not lost.
class OutputBlock {
public:
    OutputBlock() = default;
    OutputBlock(const OutputBlock&) = delete;
    OutputBlock& operator=(const OutputBlock&) = delete;
    ~OutputBlock() { Flush(); }

    std::string& text() { return text_; }
    void LineDone() {
        text_ += '\n';
        if (text_.size() >= kBlock) Flush();
    }
    void Flush() {
        if (!text_.empty() && !std::cout.write(text_.data(), static_cast<std::streamsize>(text_.size()))) {
            writable_ = false;
        }
        text_.clear();
    }
    // False once a write failed: output that can no longer be written ends
    // the reading too.
    bool writable() const { return writable_ && std::cout; }

private:
    static constexpr std::size_t kBlock = 1 << 16;
    std::string text_;
    bool writable_ = true;
};

// Words such as "nan", "inf" and "-infinity" are numbers too: the statistics
// name what they do to the window.
double RequireNumber(const std::string& word) {
    double value = 0.0;
    const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (ec != std::errc() || end != word.data() + word.size()) {
        throw ToolError{kExitBadInput, "timetool: bad number " + QuoteArgument(word) + " on standard input"};
    }
    return value;
}

// JSON has no NaN or infinities: they are carried by name, as in the text.
Json NumberJson(double value) {
    if (std::isfinite(value)) return value;
    std::string name;
    AppendNumber(name, value);
    return name;
}

void AppendNumberJson(std::string& out, double value) {
    if (std::isfinite(value)) {
        AppendNumber(out, value);
        return;
    }
    out += '"';
    AppendNumber(out, value);
    out += '"';
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

void AppendEvents(OutputBlock& out, const std::vector<VectorEvent>& events) {
    for (const VectorEvent& event : events) {
        out.text() += "event " + event.name;
        if (event.name == "ElementChanged") out.text() += " index " + std::to_string(event.index);
        out.LineDone();
    }
}

std::vector<Statistic> RequireStatistics(const std::string& list) {
    const std::optional<std::vector<Statistic>> statistics = ParseStatistics(list);
    if (!statistics) {
        throw ToolError{kExitBadInput, "timetool: bad --stat " + QuoteArgument(list) +
                                           ": a comma-separated list of count, sum, mean, min, max, stddev"};
    }
    return *statistics;
}

// A listener on the buffer when --events asks for one; released from the
// buffer when the command ends.
class EventWatch {
public:
    EventWatch(IDblVector* vector, bool wanted) : listener_(VectorListener::Create()) {
        if (!wanted) return;
        CheckModule(vector->QueryInterface(InterfaceId("IEventSource"), source_.put_void()), "DblBuffer IEventSource");
        CheckModule(source_->Advise(listener_.get(), 1), "IEventSource::Advise");
    }
    EventWatch(const EventWatch&) = delete;
    EventWatch& operator=(const EventWatch&) = delete;
    ~EventWatch() {
        if (source_) source_->Advise(listener_.get(), 0);
    }
    std::vector<VectorEvent> Take() { return listener_->TakeEvents(); }

private:
    SmartPtr<VectorListener> listener_;
    SmartPtr<IEventSource> source_;
};

void RunStatistics(const WindowOptions& options, int capacity) {
    const std::vector<Statistic> statistics = RequireStatistics(options.statistics);
    const ModuleSession session;
    SmartPtr<IDblVector> buffer = session.Create<IDblVector>(L"DblBuffer", InterfaceId("IDblVector"));
    EventWatch watch(buffer.get(), options.events);
    ModuleWindow window(buffer, capacity);
    RollingStats rolling(capacity);
    OutputBlock out;
    std::string& text = out.text();

    const std::vector<VectorEvent> startEvents = watch.Take();
    if (options.json) {
        Json head = JsonDocument();
        head["capacity"] = capacity;
        Json names = Json::array();
        for (const Statistic statistic : statistics) names.push_back(StatisticName(statistic));
        head["statistics"] = names;
        if (options.events) head["events"] = EventsJson(startEvents);
        const std::string document = head.dump();
        text.append(document, 0, document.size() - 1);
        text += ",\"steps\":[";
    } else {
        AppendEvents(out, startEvents);
    }
    InputWords input;
    std::string word;
    std::vector<double> contents;
    bool first = true;
    while (out.writable() && input.Next(word)) {
        const double value = RequireNumber(word);
        rolling.Push(value, window.Push(value));
        if (rolling.WantsWindow()) {
            window.ReadInto(contents);
            rolling.Refresh(contents);
        }
        const std::vector<VectorEvent> events = watch.Take();
        if (options.json) {
            text += first ? "\n{\"value\":" : ",\n{\"value\":";
            AppendNumberJson(text, value);
            for (const Statistic statistic : statistics) {
                text += ",\"";
                text += StatisticName(statistic);
                text += "\":";
                AppendNumberJson(text, rolling.Value(statistic));
            }
            if (options.events) text += ",\"events\":" + EventsJson(events).dump();
            text += '}';
            out.LineDone();
            text.pop_back();
        } else {
            AppendEvents(out, events);
            text += "value=";
            AppendNumber(text, value);
            for (const Statistic statistic : statistics) {
                text += ' ';
                text += StatisticName(statistic);
                text += '=';
                AppendNumber(text, rolling.Value(statistic));
            }
            out.LineDone();
        }
        first = false;
    }
    if (options.json) {
        text += "\n]}";
        out.LineDone();
    }
}

void RunWholeWindow(const WindowOptions& options, int capacity) {
    const ModuleSession session;
    SmartPtr<IDblVector> buffer = session.Create<IDblVector>(L"DblBuffer", InterfaceId("IDblVector"));
    EventWatch watch(buffer.get(), options.events);
    ModuleWindow window(buffer, capacity);
    OutputBlock out;
    std::string& text = out.text();

    Json steps = Json::array();
    const std::vector<VectorEvent> startEvents = watch.Take();
    if (!options.json) AppendEvents(out, startEvents);
    InputWords input;
    std::string word;
    std::vector<double> contents;
    while (out.writable() && input.Next(word)) {
        const double value = RequireNumber(word);
        window.Push(value);
        window.ReadInto(contents);
        const std::vector<VectorEvent> events = watch.Take();
        if (options.json) {
            Json values = Json::array();
            for (const double element : contents) values.push_back(NumberJson(element));
            Json step{{"value", NumberJson(value)}, {"window", values}};
            if (options.events) step["events"] = EventsJson(events);
            steps.push_back(step);
        } else {
            AppendEvents(out, events);
            for (std::size_t age = 0; age < contents.size(); ++age) {
                if (age > 0) text += ' ';
                AppendNumber(text, contents[age]);
            }
            out.LineDone();
        }
    }
    if (options.json) {
        Json json = JsonDocument();
        json["capacity"] = capacity;
        if (options.events) json["events"] = EventsJson(startEvents);
        json["steps"] = steps;
        text += json.dump(2);
        out.LineDone();
    }
}

void RunWindow(const WindowOptions& options) {
    const int capacity = RequireCount("N", options.capacity, 1, 1000000);
    if (options.statistics.empty()) {
        RunWholeWindow(options, capacity);
    } else {
        RunStatistics(options, capacity);
    }
}

}  // namespace

void AddWindowCommand(CLI::App& app) {
    auto options = std::make_shared<WindowOptions>();
    CLI::App* command = app.add_subcommand(
        "window",
        "Read numbers from standard input into a DblBuffer of capacity N; print the window, oldest first, "
        "or with --stat its statistics, after each one");
    command->add_option("N", options->capacity, "capacity of the buffer, 1 to 1000000, in decimal")->required();
    command->add_option("--stat", options->statistics,
                        "print these statistics of the window instead of its values: a comma-separated list of "
                        "count, sum, mean, min, max, stddev (population), in the order wanted");
    command->add_flag("--events", options->events, "print every change notification the buffer sends");
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunWindow(*options); });
}

}  // namespace timetool
