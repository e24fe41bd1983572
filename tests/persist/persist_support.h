// Shared helpers of the persistence tests: the kit's components through a
// global collection, texts of framework objects, reference counts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_interfaces.h"
#include "support/module_host.h"
#include "support/stream_files.h"

namespace persist_test {

// A new global collection of the built kit; null when the kit cannot be loaded.
SmartPtr<IComponentCollection> NewKitCollection();

// A kit component created by name through the collection, answering iid.
template <class I>
SmartPtr<I> NewComponent(IComponentCollection* collection, std::wstring_view name, const IID& iid) {
    SmartPtr<I> result;
    if (collection) {
        collection->GetComponent(static_cast<std::int32_t>(name.size()), name.data(), &iid, result.put_void());
    }
    return result;
}

// A kit text object holding text.
SmartPtr<IString> NewText(IComponentCollection* collection, std::wstring_view text);
// A kit variant holding an integer or a double.
SmartPtr<IVariant> NewInteger(IComponentCollection* collection, std::int32_t value);
SmartPtr<IVariant> NewDouble(IComponentCollection* collection, double value);

// The characters of a text object; "<null>" for no object.
std::wstring TextOf(IString* text);
// The whole text of a stream through its IString; "<no text>" when it has none.
std::wstring StreamText(IUnknown* stream);
// Replaces the whole text of a stream through its IString.
void SetStreamText(IUnknown* stream, std::wstring_view text);

// The current reference count, read through one AddRef and its Release.
std::int32_t RefCount(IUnknown* object);

// The name, the variant type and the integer or double value of each entry
// of a named collection, one "name=type:value" line each, in order.
std::wstring DescribeEntries(INamedCollection* collection);

// A unique path under the system's temporary folder; the file is removed at
// the end of the scope.
class ScratchFile {
public:
    explicit ScratchFile(std::string_view suffix);
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();
    const std::string& path() const { return path_; }
    std::wstring widePath() const { return std::wstring(path_.begin(), path_.end()); }

private:
    std::string path_;
};

}  // namespace persist_test
