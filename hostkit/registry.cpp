// "Registry": text values by section and key, kept in a file that persists
// across processes (format in registry_format.h, location in
// registry_location.h). Every query reads the file afresh, so a change made
// by anyone takes effect at the next query.
#include "hostkit/registry.h"

#include <string>

#include "hostkit/creatable_string.h"
#include "hostkit/file_codes.h"
#include "hostkit/file_read.h"
#include "hostkit/file_replace.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/registry_format.h"
#include "hostkit/registry_location.h"
#include "hostkit/utf8.h"

namespace kit {

namespace {

// The UTF-8 form of a framework text; E_INVALIDARG for a unit that is not a
// Unicode scalar value.
HRESULT ReadUtf8(IString* string, std::string* text) {
    std::wstring_view wide;
    const HRESULT hr = ReadString(string, &wide);
    if (FAILED(hr)) return hr;
    text->clear();
    return AppendUtf8(wide, text) ? S_OK : E_INVALIDARG;
}

// Where a value lives, both texts in UTF-8; the section is checked first.
HRESULT ReadSectionAndKey(IString* section, IString* key, std::string* section_text, std::string* key_text) {
    const HRESULT hr = ReadUtf8(section, section_text);
    return FAILED(hr) ? hr : ReadUtf8(key, key_text);
}

// The file's text; a missing file is an empty registry.
HRESULT ReadRegistryFile(const std::string& path, std::string* text) {
    if (path.empty()) {
        text->clear();
        return S_OK;
    }
    const FileOutcome read = ReadRegularFile(path, kMaxRegistryBytes, text);
    switch (read.failure) {
        case FileFailure::kNone:
            return S_OK;
        case FileFailure::kMissing:
            text->clear();
            return S_OK;
        case FileFailure::kTooLarge:
            return kRegistryMalformed;
        default:
            break;
    }
    return kRegistryReadFailed;
}

class Registry final : public IRegistry, public RefCounted {
public:
    Registry() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this, {{kIID_IRegistry, static_cast<IRegistry*>(this)}}, iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // S_OK with a null *value for an absent key or a missing file; S_OK with
    // an empty text for an empty value.
    HRESULT GetValue(IString* section, IString* key, IString** value) override {
        if (!value) return E_POINTER;
        *value = nullptr;
        return NoThrow([&] {
            std::string section_text;
            std::string key_text;
            HRESULT hr = ReadSectionAndKey(section, key, &section_text, &key_text);
            if (FAILED(hr)) return hr;
            std::string file;
            hr = ReadRegistryFile(Path(), &file);
            if (FAILED(hr)) return hr;
            std::string found;
            switch (FindRegistryValue(file, section_text, key_text, &found)) {
                case RegistryStatus::kMalformed:
                    return kRegistryMalformed;
                case RegistryStatus::kAbsent:
                    return S_OK;
                case RegistryStatus::kFound:
                    break;
            }
            std::wstring wide;
            DecodeUtf8(found, &wide);  // the whole file was checked to be UTF-8
            return NewString(wide, value);
        });
    }

    // A null value removes the key. A malformed file is left untouched.
    HRESULT SetValue(IString* section, IString* key, IString* value) override {
        return NoThrow([&] {
            std::string section_text;
            std::string key_text;
            HRESULT hr = ReadSectionAndKey(section, key, &section_text, &key_text);
            if (FAILED(hr)) return hr;
            std::string value_text;
            if (value) {
                hr = ReadUtf8(value, &value_text);
                if (FAILED(hr)) return hr;
            }
            if (!IsWritableSection(section_text) || !IsWritableKey(key_text)) return E_INVALIDARG;
            const std::string path = Path();
            if (path.empty()) return kRegistryWriteFailed;
            std::string file;
            hr = ReadRegistryFile(path, &file);
            if (FAILED(hr)) return hr;
            std::string edited;
            switch (EditRegistry(file, section_text, key_text, value ? &value_text : nullptr, &edited)) {
                case RegistryEdit::kMalformed:
                    return kRegistryMalformed;
                case RegistryEdit::kTooLarge:
                    return E_INVALIDARG;
                case RegistryEdit::kUnchanged:
                    return S_OK;
                case RegistryEdit::kEdited:
                    break;
            }
            return RegistryWriteCode(ReplaceFile(path, edited, {.new_file_mode = 0644, .make_folders = true}));
        });
    }

    // The file in use; an empty text when there is no location.
    HRESULT GetFilePath(IString** path) override {
        if (!path) return E_POINTER;
        *path = nullptr;
        return NoThrow([&] { return NewString(DecodeUtf8Lenient(Path()), path); });
    }

    // Length 0 returns to the default location.
    HRESULT SetFilePath(std::int32_t length, const wchar_t* path) override {
        const HRESULT hr = CheckText(length, path);
        if (FAILED(hr)) return hr;
        const std::wstring_view text = TextView(length, path);
        if (text.find(L'\0') != std::wstring_view::npos) return E_INVALIDARG;
        return NoThrow([&] {
            std::string narrow;
            if (!AppendUtf8(text, &narrow)) return E_INVALIDARG;
            path_ = std::move(narrow);
            return S_OK;
        });
    }

private:
    ~Registry() override = default;

    // The environment is consulted on every use, so a host may point it elsewhere at any time.
    std::string Path() const { return path_.empty() ? DefaultRegistryPath() : path_; }

    std::string path_;  // set by SetFilePath; empty for the default location
};

}  // namespace

HRESULT CreateRegistry(const IID& iid, void** out) { return CreateObject<Registry>(iid, out); }

}  // namespace kit
