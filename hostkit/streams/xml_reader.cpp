#include "hostkit/streams/xml_reader.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "hostkit/streams/xml_chars.h"
#include "hostkit/utf8.h"

namespace kit::streams {

namespace {

// Structure only: references stay undecoded (the kit checks and decodes
// them), line ends and attribute values stay as written, and every node kind
// is kept so that the kit can check it.
constexpr unsigned kParseOptions = pugi::parse_cdata | pugi::parse_comments | pugi::parse_pi | pugi::parse_declaration |
                                   pugi::parse_doctype | pugi::parse_ws_pcdata | pugi::parse_fragment;

struct PredefinedEntity {
    std::string_view name;
    char character;
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

bool IsName(std::string_view utf8) {
    std::wstring wide;
    return DecodeUtf8(utf8, &wide) && IsXmlName(wide);
}

// One reference at raw[*at] ('&'), appended decoded; kTruncated when the
// value ends inside it.
XmlCheck DecodeReference(std::string_view raw, std::size_t* at, std::string* out) {
    std::size_t i = *at + 1;
    if (i >= raw.size()) return XmlCheck::kTruncated;
    if (raw[i] == '#') {
        ++i;
        std::uint32_t base = 10;
        if (i < raw.size() && raw[i] == 'x') {
            base = 16;
            ++i;
        }
        std::uint32_t value = 0;
        std::size_t digits = 0;
        for (; i < raw.size() && HexDigitValue(raw[i]) < base; ++i, ++digits) {
            value = std::min(value * base + HexDigitValue(raw[i]), kReferenceLimit);
        }
        if (i >= raw.size()) return XmlCheck::kTruncated;
        if (digits == 0 || raw[i] != ';' || !IsXmlChar(value)) return XmlCheck::kCorrupt;
        const wchar_t character = static_cast<wchar_t>(value);
        AppendUtf8(std::wstring_view(&character, 1), out);
    } else {
        const std::size_t end = raw.find(';', i);
        if (end == std::string_view::npos) {
            // Cut by the end only if everything after '&' could still be a name.
            return IsName(raw.substr(i)) ? XmlCheck::kTruncated : XmlCheck::kCorrupt;
        }
        const std::string_view name = raw.substr(i, end - i);
        const auto entity = std::find_if(std::begin(kPredefinedEntities), std::end(kPredefinedEntities),
                                         [&](const PredefinedEntity& e) { return e.name == name; });
        // No document type, so no other entity is declared.
        if (entity == std::end(kPredefinedEntities)) return XmlCheck::kCorrupt;
        out->push_back(entity->character);
        i = end;
    }
    *at = i + 1;
    return XmlCheck::kOk;
}

// Character data or an attribute value as written, decoded into *out.
XmlCheck DecodeCharacterData(std::string_view raw, bool attribute, std::string* out) {
    out->clear();
    for (std::size_t at = 0; at < raw.size();) {
        const char c = raw[at];
        if (c == '&') {
            const XmlCheck reference = DecodeReference(raw, &at, out);
            if (reference != XmlCheck::kOk) return reference;
            continue;
        }
        if (attribute && c == '<') return XmlCheck::kCorrupt;
        if (!attribute && raw.substr(at).starts_with("]]>")) return XmlCheck::kCorrupt;
        out->push_back(c);
        ++at;
    }
    return XmlCheck::kOk;
}

bool IsXmlSpaceOnly(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return IsXmlSpace(static_cast<unsigned char>(c)); });
}

bool IsCaseInsensitiveXml(std::string_view name) {
    return name.size() == 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'l';
}

// The next node in document order, or null after the last.
pugi::xml_node NextInOrder(pugi::xml_node node) {
    if (node.first_child()) return node.first_child();
    while (node && !node.next_sibling()) node = node.parent();
    return node ? node.next_sibling() : pugi::xml_node();
}

std::string_view TrimSpaceRight(std::string_view text) {
    while (!text.empty() && IsXmlSpace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
    return text;
}

// Whether pugixml stopped because the input ended rather than at an error.
// An unclosed attribute value is reported at the value's start and an end tag
// cut short at its name; anything else cut short is reported at the last
// byte or at the end, where a real error in the last byte is reported too:
// one more byte that no construct accepts tells them apart, since an input
// that was merely cut then fails at that byte or later.
bool StoppedAtEnd(std::string_view text, const pugi::xml_parse_result& parsed) {
    const auto offset = static_cast<std::size_t>(parsed.offset);
    if (parsed.status == pugi::status_bad_attribute && offset > 0 && offset < text.size()) {
        const char quote = text[offset - 1];
        if ((quote == '"' || quote == '\'') && text.find(quote, offset) == std::string_view::npos) return true;
    }
    if ((parsed.status == pugi::status_end_element_mismatch || parsed.status == pugi::status_bad_end_element) &&
        offset < text.size()) {
        const std::string_view rest = TrimSpaceRight(text.substr(offset));
        if (rest.empty() || IsName(rest)) return true;
    }
    if (offset >= text.size()) return true;
    if (offset + 1 < text.size()) return false;
    std::string extended(text);
    extended.push_back('\x01');
    pugi::xml_document scratch;
    const pugi::xml_parse_result again =
        scratch.load_buffer(extended.data(), extended.size(), kParseOptions, pugi::encoding_utf8);
    return static_cast<std::size_t>(again.offset) >= text.size();
}

class TreeChecker {
public:
    TreeChecker(std::string_view text, XmlMode mode, bool complete) : text_(text), mode_(mode), complete_(complete) {}

    XmlCheck Check(pugi::xml_document& tree) {
        pugi::xml_node last;
        for (pugi::xml_node node = tree.first_child(); node; node = NextInOrder(node)) last = node;
        for (pugi::xml_node node = tree.first_child(); node; node = NextInOrder(node)) {
            // The node the parser was inside when the input ended is unfinished
            // (a name or declaration cut short), so only what it holds so far
            // can be judged, and only as text.
            if (node == last && !complete_ && node.type() != pugi::node_pcdata) continue;
            const XmlCheck check = CheckNode(tree, node, node == last);
            if (check != XmlCheck::kOk) return check;
        }
        if (mode_ == XmlMode::kDocument && complete_) {
            const auto roots = std::count_if(tree.begin(), tree.end(),
                                             [](const pugi::xml_node& n) { return n.type() == pugi::node_element; });
            if (roots == 0) return XmlCheck::kTruncated;
            if (roots > 1) return XmlCheck::kCorrupt;
        }
        return XmlCheck::kOk;
    }

private:
    bool AtTop(const pugi::xml_node& node) const { return node.parent().type() == pugi::node_document; }

    XmlCheck CheckNode(pugi::xml_document& tree, pugi::xml_node node, bool last) {
        switch (node.type()) {
            case pugi::node_element:
                return CheckElement(node);
            case pugi::node_pcdata: {
                const std::string_view raw = node.value();
                if (mode_ == XmlMode::kDocument && AtTop(node)) {
                    return IsXmlSpaceOnly(raw) ? XmlCheck::kOk : XmlCheck::kCorrupt;
                }
                XmlCheck check = DecodeCharacterData(raw, false, &decoded_);
                // Only the text at the very end of an unfinished input may end inside a reference.
                if (check == XmlCheck::kTruncated && !(last && !complete_)) check = XmlCheck::kCorrupt;
                if (check == XmlCheck::kOk && decoded_ != raw) node.set_value(decoded_.c_str(), decoded_.size());
                return check;
            }
            case pugi::node_cdata:
                return mode_ == XmlMode::kDocument && AtTop(node) ? XmlCheck::kCorrupt : XmlCheck::kOk;
            case pugi::node_comment: {
                const std::string_view comment = node.value();
                return comment.find("--") == std::string_view::npos && !comment.ends_with('-') ? XmlCheck::kOk
                                                                                               : XmlCheck::kCorrupt;
            }
            case pugi::node_pi:
                return IsName(node.name()) && !IsCaseInsensitiveXml(node.name()) ? XmlCheck::kOk : XmlCheck::kCorrupt;
            case pugi::node_declaration:
                return CheckDeclaration(tree, node);
            default:
                return XmlCheck::kCorrupt;  // document type declarations are not supported
        }
    }

    XmlCheck CheckElement(pugi::xml_node element) {
        if (!IsName(element.name())) return XmlCheck::kCorrupt;
        names_.clear();
        for (pugi::xml_attribute attribute : element.attributes()) {
            if (!IsName(attribute.name())) return XmlCheck::kCorrupt;
            names_.emplace_back(attribute.name());
            const std::string_view raw = attribute.value();
            // An attribute is complete once the tree holds it, so a cut reference is corruption.
            if (DecodeCharacterData(raw, true, &decoded_) != XmlCheck::kOk) return XmlCheck::kCorrupt;
            if (decoded_ != raw) attribute.set_value(decoded_.c_str(), decoded_.size());
        }
        std::sort(names_.begin(), names_.end());
        return std::adjacent_find(names_.begin(), names_.end()) == names_.end() ? XmlCheck::kOk : XmlCheck::kCorrupt;
    }

    // Only first, spelled "xml", with the version first.
    XmlCheck CheckDeclaration(pugi::xml_document& tree, pugi::xml_node declaration) const {
        std::string_view text = text_;
        if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
        const bool first = declaration == tree.first_child() && text.starts_with("<?xml");
        const bool version_first = std::string_view(declaration.first_attribute().name()) == "version";
        return first && version_first && std::string_view(declaration.name()) == "xml" ? XmlCheck::kOk
                                                                                       : XmlCheck::kCorrupt;
    }

    std::string_view text_;
    XmlMode mode_;
    bool complete_;                        // the parser reached the end without an error
    std::string decoded_;                  // scratch for decoded character data
    std::vector<std::string_view> names_;  // attribute names of the element being checked
};

}  // namespace

XmlCheck ReadXml(std::string_view text, XmlMode mode, pugi::xml_document* tree) {
    // Every character of a document must be one XML allows; a sequence cut by
    // the end means more was to come.
    // A byte order mark cut short is an empty document cut short.
    if (!text.empty() && text.size() < 3 && std::string_view("\xEF\xBB\xBF").starts_with(text)) {
        return XmlCheck::kTruncated;
    }
    std::wstring wide;
    const Utf8Status encoding = DecodeUtf8Checked(text, &wide);
    if (encoding == Utf8Status::kInvalid) return XmlCheck::kCorrupt;
    if (!std::all_of(wide.begin(), wide.end(), [](wchar_t c) { return IsXmlChar(static_cast<std::uint32_t>(c)); })) {
        return XmlCheck::kCorrupt;
    }
    const pugi::xml_parse_result parsed =
        tree->load_buffer(text.data(), text.size(), kParseOptions, pugi::encoding_utf8);
    const bool complete = static_cast<bool>(parsed) && encoding == Utf8Status::kValid;
    if (!parsed && !StoppedAtEnd(text, parsed)) return XmlCheck::kCorrupt;
    const XmlCheck checked = TreeChecker(text, mode, complete).Check(*tree);
    if (checked != XmlCheck::kOk) return checked;
    return complete ? XmlCheck::kOk : XmlCheck::kTruncated;
}

}  // namespace kit::streams
