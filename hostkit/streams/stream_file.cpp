#include "hostkit/streams/stream_file.h"

#include "hostkit/file_codes.h"
#include "hostkit/file_read.h"
#include "hostkit/file_replace.h"
#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/utf8.h"

namespace kit::streams {

HRESULT PathFromWide(std::int32_t length, const wchar_t* path, std::string* out) {
    if (length <= 0) return E_INVALIDARG;
    if (!path) return E_POINTER;
    const std::wstring_view text(path, static_cast<std::size_t>(length));
    if (text.find(L'\0') != std::wstring_view::npos) return E_INVALIDARG;
    out->clear();
    if (!AppendUtf8(text, out)) return E_INVALIDARG;
    return S_OK;
}

HRESULT ReadWholeFile(const std::string& path, std::string* out) {
    return StreamFileCode(ReadRegularFile(path, kMaxStreamSize, out), FileDirection::kRead);
}

HRESULT WriteFileAtomically(const std::string& path, std::string_view bytes) {
    return StreamFileCode(ReplaceFile(path, bytes), FileDirection::kWrite);
}

}  // namespace kit::streams
