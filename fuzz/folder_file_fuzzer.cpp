// The host kit's folder stream file reader on fuzzed bytes. Checked: a file
// that decodes encodes again and decodes to the same content (nothing is
// lost), and a refused file leaves the output untouched.
#include <cstdint>
#include <string>

#include "fuzz/fuzz_input.h"
#include "hostkit/streams/folder_format.h"
#include "hostkit/streams/stream_results.h"

namespace {

bool SameContent(const kit::streams::FolderContent& a, const kit::streams::FolderContent& b) {
    if (a.raw != b.raw || a.values.size() != b.values.size()) return false;
    for (std::size_t i = 0; i < a.values.size(); ++i) {
        if (a.values[i].name != b.values[i].name || a.values[i].data != b.values[i].data) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kit::streams;
    const fuzz::ExactBytes file(std::string_view(reinterpret_cast<const char*>(data), size));
    FolderContent content;
    content.raw = "untouched";
    const HRESULT hr = DecodeFolderFile(file.view(), &content);
    if (hr != S_OK) {
        fuzz::Require(hr == kit::kE_StreamTruncated || hr == kit::kE_StreamCorrupt, "a refused file has its code");
        fuzz::Require(content.raw == "untouched" && content.values.empty(), "a refused file writes nothing");
        return 0;
    }
    for (const FolderValue& value : content.values) fuzz::Require(IsValueName(value.name), "decoded names are valid");
    std::string encoded;
    fuzz::Require(EncodeFolderFile(content, &encoded) == S_OK, "decoded content encodes");
    FolderContent again;
    fuzz::Require(DecodeFolderFile(encoded, &again) == S_OK, "encoded content decodes");
    fuzz::Require(SameContent(content, again), "content survives a round trip");
    return 0;
}
