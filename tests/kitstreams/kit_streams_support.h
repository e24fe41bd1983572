// Shared helpers of the kit stream tests: the kit's components through its
// exported CreateFunction, framework texts and variants, scratch folders.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "hostkit/scratch_folder.h"
#include "support/module_host.h"
#include "support/stream_files.h"

namespace kitstreams_test {

using ::ScratchFolder;

// Result codes the kit's streams answer, as hosts see them.
inline constexpr HRESULT kTruncated = static_cast<HRESULT>(0x80070026u);
inline constexpr HRESULT kCorrupt = static_cast<HRESULT>(0x8007000Du);
inline constexpr HRESULT kNameNotFound = static_cast<HRESULT>(0x80070490u);
inline constexpr HRESULT kSizeMismatch = static_cast<HRESULT>(0x80070018u);
inline constexpr HRESULT kFileNotFound = static_cast<HRESULT>(0x80070002u);

const LoadedModule& Kit();

template <class I>
SmartPtr<I> Make(const wchar_t* component, const IID& iid) {
    return Kit().Create<I>(component, iid);
}

// A framework text object of the kit holding text.
SmartPtr<IString> Text(std::wstring_view text);
// The text an object holds (empty for null).
std::wstring TextOf(IString* string);
// The whole text of a stream, read through its IString.
std::wstring StreamText(IUnknown* stream);

SmartPtr<IVariant> IntegerVariant(std::int32_t value);
SmartPtr<IVariant> DoubleVariant(double value);
SmartPtr<IVariant> TextVariant(std::wstring_view value);

// The current reference count of an object, by AddRef and Release.
std::int32_t RefCount(IUnknown* object);

std::wstring Wide(std::string_view ascii);

// All bytes of a stream from its start, through Read (position ends at the end).
std::string ReadAll(IDataStream* stream);

}  // namespace kitstreams_test
