#include "hostkit/streams/xml_scanner.h"

#include <cstdint>
#include <string>
#include <vector>

#include "hostkit/streams/text_codec.h"
#include "hostkit/streams/xml_chars.h"

namespace kit::streams {

namespace {

enum class Match { kYes, kNo, kNeedMore };

struct PredefinedEntity {
    std::string_view name;
    std::uint32_t code;
};
constexpr PredefinedEntity kPredefinedEntities[] = {
    {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"apos", '\''}, {"quot", '"'},
};

// Values above this are cut off while reading a character reference; none of
// them is a character.
constexpr std::uint32_t kReferenceLimit = 0x110000;

constexpr std::uint32_t HexDigitValue(char c) {
    if (c >= '0' && c <= '9') return static_cast<std::uint32_t>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<std::uint32_t>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F') return static_cast<std::uint32_t>(c - 'A' + 10);
    return 16;
}

class Scanner {
public:
    Scanner(std::string_view input, XmlMode mode, XmlHandler* handler) : in_(input), mode_(mode), handler_(handler) {}

    XmlScan Run() {
        switch (in_.empty() ? Match::kNo : Next("\xEF\xBB\xBF")) {
            case Match::kYes:
                at_ = 3;
                break;
            case Match::kNeedMore:
                return XmlScan::kTruncated;
            case Match::kNo:
                break;
        }
        start_ = at_;
        for (;;) {
            if (AtEnd()) {
                if (!open_.empty()) return XmlScan::kTruncated;
                if (mode_ == XmlMode::kDocument && !root_done_) return XmlScan::kTruncated;
                return XmlScan::kOk;
            }
            if (AtDocumentTop()) {
                SkipSpace();
                if (AtEnd()) continue;
                if (in_[at_] != '<') return XmlScan::kCorrupt;
            }
            const XmlScan step = in_[at_] == '<' ? Markup() : CharData();
            if (step != XmlScan::kOk) return step;
        }
    }

private:
    bool AtEnd() const { return at_ >= in_.size(); }
    // Outside the root element of a document only markup and spaces may stand.
    bool AtDocumentTop() const { return mode_ == XmlMode::kDocument && open_.empty(); }

    Match Next(std::string_view literal) const {
        const std::size_t available = in_.size() - at_;
        const std::size_t compared = available < literal.size() ? available : literal.size();
        if (in_.compare(at_, compared, literal, 0, compared) != 0) return Match::kNo;
        return compared < literal.size() ? Match::kNeedMore : Match::kYes;
    }

    XmlScan PeekChar(std::uint32_t* code, std::size_t* length) const {
        if (AtEnd()) return XmlScan::kTruncated;
        const auto byte = static_cast<std::uint8_t>(in_[at_]);
        if (byte < 0x80) {
            *code = byte;
            *length = 1;
        } else {
            switch (DecodeCodePoint(in_, at_, code, length)) {
                case DecodeStep::kOk:
                    break;
                case DecodeStep::kIncomplete:
                    return XmlScan::kTruncated;
                case DecodeStep::kInvalid:
                    return XmlScan::kCorrupt;
            }
        }
        return IsXmlChar(*code) ? XmlScan::kOk : XmlScan::kCorrupt;
    }

    // Consumes one character, appending its bytes to out when given.
    XmlScan TakeChar(std::string* out) {
        std::uint32_t code = 0;
        std::size_t length = 0;
        const XmlScan peek = PeekChar(&code, &length);
        if (peek != XmlScan::kOk) return peek;
        if (out) out->append(in_.substr(at_, length));
        at_ += length;
        return XmlScan::kOk;
    }

    std::size_t SkipSpace() {
        const std::size_t from = at_;
        while (!AtEnd() && IsXmlSpace(static_cast<std::uint8_t>(in_[at_]))) ++at_;
        return at_ - from;
    }

    XmlScan Name(std::string_view* name) {
        const std::size_t from = at_;
        std::uint32_t code = 0;
        std::size_t length = 0;
        XmlScan peek = PeekChar(&code, &length);
        if (peek != XmlScan::kOk) return peek;
        if (!IsNameStartChar(code)) return XmlScan::kCorrupt;
        do {
            at_ += length;
            peek = PeekChar(&code, &length);
            if (peek != XmlScan::kOk) return peek;
        } while (IsNameChar(code));
        *name = in_.substr(from, at_ - from);
        return XmlScan::kOk;
    }

    XmlScan Expect(char c) {
        if (AtEnd()) return XmlScan::kTruncated;
        if (in_[at_] != c) return XmlScan::kCorrupt;
        ++at_;
        return XmlScan::kOk;
    }

    // A reference at '&', decoded into out.
    XmlScan Reference(std::string& out) {
        switch (Next("&#")) {
            case Match::kNeedMore:
                return XmlScan::kTruncated;
            case Match::kNo:
                return EntityReference(out);
            case Match::kYes:
                break;
        }
        at_ += 2;
        if (AtEnd()) return XmlScan::kTruncated;
        std::uint32_t base = 10;
        if (in_[at_] == 'x') {
            base = 16;
            ++at_;
        }
        std::uint32_t value = 0;
        std::size_t digits = 0;
        for (;; ++at_, ++digits) {
            if (AtEnd()) return XmlScan::kTruncated;
            const std::uint32_t digit = HexDigitValue(in_[at_]);
            if (digit >= base) break;
            value = value * base + digit;
            if (value > kReferenceLimit) value = kReferenceLimit;
        }
        if (digits == 0 || in_[at_] != ';') return XmlScan::kCorrupt;
        ++at_;
        if (!IsXmlChar(value)) return XmlScan::kCorrupt;
        AppendCodePoint(value, out);
        return XmlScan::kOk;
    }

    XmlScan EntityReference(std::string& out) {
        ++at_;
        std::string_view name;
        const XmlScan named = Name(&name);
        if (named != XmlScan::kOk) return named;
        const XmlScan end = Expect(';');
        if (end != XmlScan::kOk) return end;
        for (const PredefinedEntity& entity : kPredefinedEntities) {
            if (entity.name == name) {
                out.push_back(static_cast<char>(entity.code));
                return XmlScan::kOk;
            }
        }
        return XmlScan::kCorrupt;  // no document type, so no other entity is declared
    }

    XmlScan CharData() {
        text_.clear();
        while (!AtEnd() && in_[at_] != '<') {
            XmlScan step = XmlScan::kOk;
            if (in_[at_] == '&') {
                step = Reference(text_);
            } else if (Next("]]>") == Match::kYes) {
                step = XmlScan::kCorrupt;
            } else {
                step = TakeChar(&text_);
            }
            if (step != XmlScan::kOk) return step;
        }
        if (handler_ && !text_.empty()) handler_->Text(text_);
        return XmlScan::kOk;
    }

    XmlScan Markup() {
        if (at_ + 1 >= in_.size()) return XmlScan::kTruncated;
        switch (in_[at_ + 1]) {
            case '/':
                return EndTag();
            case '?':
                return ProcessingInstruction();
            case '!':
                break;
            default:
                return StartTag();
        }
        const Match comment = Next("<!--");
        if (comment == Match::kYes) return Comment();
        const Match cdata = Next("<![CDATA[");
        if (cdata == Match::kYes) return AtDocumentTop() ? XmlScan::kCorrupt : CData();
        if (comment == Match::kNeedMore || cdata == Match::kNeedMore) return XmlScan::kTruncated;
        return XmlScan::kCorrupt;  // document type declarations are not supported
    }

    XmlScan StartTag() {
        if (AtDocumentTop() && root_done_) return XmlScan::kCorrupt;
        ++at_;
        std::string_view name;
        XmlScan step = Name(&name);
        if (step != XmlScan::kOk) return step;
        attributes_.clear();
        for (;;) {
            const std::size_t spaces = SkipSpace();
            if (AtEnd()) return XmlScan::kTruncated;
            if (in_[at_] == '>') {
                ++at_;
                open_.push_back(name);
                if (handler_) handler_->StartElement(name);
                return XmlScan::kOk;
            }
            if (in_[at_] == '/') {
                ++at_;
                step = Expect('>');
                if (step != XmlScan::kOk) return step;
                if (handler_) {
                    handler_->StartElement(name);
                    handler_->EndElement();
                }
                if (mode_ == XmlMode::kDocument && open_.empty()) root_done_ = true;
                return XmlScan::kOk;
            }
            if (spaces == 0) return XmlScan::kCorrupt;
            step = Attribute();
            if (step != XmlScan::kOk) return step;
        }
    }

    XmlScan Attribute() {
        std::string_view name;
        XmlScan step = Name(&name);
        if (step != XmlScan::kOk) return step;
        for (const std::string_view seen : attributes_) {
            if (seen == name) return XmlScan::kCorrupt;
        }
        attributes_.push_back(name);
        SkipSpace();
        step = Expect('=');
        if (step != XmlScan::kOk) return step;
        SkipSpace();
        if (AtEnd()) return XmlScan::kTruncated;
        const char quote = in_[at_];
        if (quote != '"' && quote != '\'') return XmlScan::kCorrupt;
        ++at_;
        for (;;) {
            if (AtEnd()) return XmlScan::kTruncated;
            const char c = in_[at_];
            if (c == quote) break;
            if (c == '<') return XmlScan::kCorrupt;
            step = c == '&' ? Reference(scratch_) : TakeChar(nullptr);
            if (step != XmlScan::kOk) return step;
        }
        ++at_;
        scratch_.clear();
        return XmlScan::kOk;
    }

    XmlScan EndTag() {
        if (open_.empty()) return XmlScan::kCorrupt;
        at_ += 2;
        std::string_view name;
        XmlScan step = Name(&name);
        if (step != XmlScan::kOk) return step;
        SkipSpace();
        step = Expect('>');
        if (step != XmlScan::kOk) return step;
        if (name != open_.back()) return XmlScan::kCorrupt;
        open_.pop_back();
        if (handler_) handler_->EndElement();
        if (mode_ == XmlMode::kDocument && open_.empty()) root_done_ = true;
        return XmlScan::kOk;
    }

    XmlScan Comment() {
        at_ += 4;
        for (;;) {
            switch (Next("--")) {
                case Match::kNeedMore:
                    return XmlScan::kTruncated;
                case Match::kYes:
                    at_ += 2;
                    return Expect('>');  // "--" may only close a comment
                case Match::kNo:
                    break;
            }
            const XmlScan step = TakeChar(nullptr);
            if (step != XmlScan::kOk) return step;
        }
    }

    XmlScan CData() {
        at_ += 9;
        text_.clear();
        for (;;) {
            switch (Next("]]>")) {
                case Match::kNeedMore:
                    return XmlScan::kTruncated;
                case Match::kYes:
                    at_ += 3;
                    if (handler_ && !text_.empty()) handler_->Text(text_);
                    return XmlScan::kOk;
                case Match::kNo:
                    break;
            }
            const XmlScan step = TakeChar(&text_);
            if (step != XmlScan::kOk) return step;
        }
    }

    // Also the XML declaration, which may only open the input and must
    // start with its version.
    XmlScan ProcessingInstruction() {
        const bool at_start = at_ == start_;
        at_ += 2;
        std::string_view target;
        XmlScan step = Name(&target);
        if (step != XmlScan::kOk) return step;
        const bool declaration =
            target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' && (target[2] | 0x20) == 'l';
        if (declaration && (!at_start || target != "xml")) return XmlScan::kCorrupt;
        if (!declaration && Next("?>") == Match::kYes) {
            at_ += 2;
            return XmlScan::kOk;
        }
        if (SkipSpace() == 0) return AtEnd() ? XmlScan::kTruncated : XmlScan::kCorrupt;
        if (declaration) {
            switch (Next("version")) {
                case Match::kNeedMore:
                    return XmlScan::kTruncated;
                case Match::kNo:
                    return XmlScan::kCorrupt;
                case Match::kYes:
                    break;
            }
        }
        for (;;) {
            switch (Next("?>")) {
                case Match::kNeedMore:
                    return XmlScan::kTruncated;
                case Match::kYes:
                    at_ += 2;
                    return XmlScan::kOk;
                case Match::kNo:
                    break;
            }
            step = TakeChar(nullptr);
            if (step != XmlScan::kOk) return step;
        }
    }

    std::string_view in_;
    std::size_t at_ = 0;     // [0, in_.size()]
    std::size_t start_ = 0;  // first byte after a byte order mark
    XmlMode mode_;
    XmlHandler* handler_;
    bool root_done_ = false;
    std::vector<std::string_view> open_;        // names of the open elements, outermost first
    std::vector<std::string_view> attributes_;  // names seen in the current start tag
    std::string text_;                          // decoded character data of the current run
    std::string scratch_;                       // decoded attribute value, checked and dropped
};

}  // namespace

XmlScan ScanXml(std::string_view text, XmlMode mode, XmlHandler* handler) { return Scanner(text, mode, handler).Run(); }

}  // namespace kit::streams
