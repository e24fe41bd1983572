// XMLGetTAGGED on fuzzed text and tag names, repeated with advance as the
// calendar loaders do. Checked: attributes, content and the advanced source
// are views inside the source, and failure leaves the source as it was.
#include <cstdint>

#include "framework/tagged_text.h"
#include "fuzz/fuzz_input.h"

namespace {
constexpr int kCalls = 8;
}  // namespace

// Layout: a byte with the tag's length (0 to 15), the tag, a flags byte,
// then the source.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ByteReader in(data, size);
    const fuzz::ExactWide tagText(in.Bytes(in.Byte() % 16));
    const std::uint8_t flags = in.Byte();
    const fuzz::ExactWide sourceText(in.Rest());
    CREFString source(sourceText.data(), sourceText.length());
    CREFString tag(tagText.data(), tagText.length());
    const short advance = flags & 1 ? 1 : 0;
    for (int i = 0; i < kCalls; ++i) {
        const CREFString before = source;
        CREFString attributes(sourceText.data(), 0);
        CREFString content(sourceText.data(), 0);
        const HRESULT hr = XMLGetTAGGED(source, tag, attributes, content, advance);
        fuzz::Require(hr == S_OK || hr == E_FAIL, "XMLGetTAGGED gives 0 or E_FAIL");
        fuzz::Require(sourceText.Holds(attributes.string, attributes.length), "attributes inside the source");
        fuzz::Require(sourceText.Holds(content.string, content.length), "content inside the source");
        fuzz::Require(sourceText.Holds(source.string, source.length), "advanced source inside the source");
        fuzz::Require(tag.string == tagText.data() && tag.length == tagText.length(), "tag left as given");
        if (hr != S_OK || !advance) {
            fuzz::Require(source.string == before.string && source.length == before.length,
                          "source unchanged without a successful advance");
            break;
        }
        fuzz::Require(source.length < before.length, "a successful advance consumes text");
    }
    return 0;
}
