#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "kit_test_support.h"

namespace {

namespace fs = std::filesystem;

constexpr HRESULT kMalformed = static_cast<HRESULT>(0x8007000Du);
constexpr HRESULT kReadFailed = static_cast<HRESULT>(0x8007001Eu);
constexpr HRESULT kWriteFailed = static_cast<HRESULT>(0x8007001Du);

// A fresh folder per test, removed afterwards.
class RegistryTest : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/kit-registry-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        folder_ = pattern;
    }
    void TearDown() override { fs::remove_all(folder_); }

    SmartPtr<IRegistry> Open(const fs::path& file) const {
        SmartPtr<IRegistry> registry = NewKit<IRegistry>(L"Registry", "IRegistry");
        const std::wstring path = file.wstring();
        if (registry) registry->SetFilePath(static_cast<std::int32_t>(path.size()), path.c_str());
        return registry;
    }

    static std::wstring Get(IRegistry* registry, const wchar_t* section, const wchar_t* key, HRESULT expected = S_OK) {
        SmartPtr<IString> s = NewText(section);
        SmartPtr<IString> k = NewText(key);
        SmartPtr<IString> value;
        EXPECT_EQ(registry->GetValue(s.get(), k.get(), value.put()), expected);
        return TextOf(value.get());
    }

    static HRESULT Set(IRegistry* registry, const wchar_t* section, const wchar_t* key, const wchar_t* value) {
        SmartPtr<IString> s = NewText(section);
        SmartPtr<IString> k = NewText(key);
        SmartPtr<IString> v = value ? NewText(value) : SmartPtr<IString>();
        return registry->SetValue(s.get(), k.get(), v.get());
    }

    static void Write(const fs::path& file, const std::string& text) { std::ofstream(file, std::ios::binary) << text; }

    static std::string Read(const fs::path& file) {
        std::ifstream in(file, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename().string());
        return names;
    }

    fs::path folder_;
};

TEST_F(RegistryTest, NewRegistryHasOneReference) {
    SmartPtr<IRegistry> registry = NewKit<IRegistry>(L"Registry", "IRegistry");
    ASSERT_TRUE(registry);
    EXPECT_EQ(registry->AddRef(), 2);
    EXPECT_EQ(registry->Release(), 1);
    EXPECT_EQ(registry.detach()->Release(), 0);
}

TEST_F(RegistryTest, IsCreatedThroughTheGlobalCollection) {
    SmartPtr<IComponentCollection> collection =
        NewKit<IComponentCollection>(L"GlobalComponentCollection", "IComponentCollection");
    const IID iid = HostIID("IRegistry");
    SmartPtr<IRegistry> registry;
    EXPECT_EQ(collection->GetComponent(8, L"Registry", &iid, registry.put_void()), S_OK);
    ASSERT_TRUE(registry);
    EXPECT_EQ(RefsHeld(registry.get()), 1);
}

TEST_F(RegistryTest, MissingFileIsAnEmptyRegistry) {
    SmartPtr<IRegistry> registry = Open(folder_ / "absent.ini");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam"), L"<null>");
    SmartPtr<IRegistry> deeper = Open(folder_ / "no" / "such" / "folder.ini");
    EXPECT_EQ(Get(deeper.get(), L"Calendar", L"SDAdam"), L"<null>");
    EXPECT_TRUE(FilesInFolder().empty());
}

TEST_F(RegistryTest, ReadsValuesAsWrittenByHand) {
    const fs::path file = folder_ / "registry.ini";
    Write(file, "# epochs\n[Calendar]\nSDAdam=1\nSDGeneric = +12.5abc\nEmpty=\nHex=#1F\n");
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam"), L"1");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDGeneric"), L"+12.5abc");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"Empty"), L"");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"Hex"), L"#1F");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"sdadam"), L"<null>");
    EXPECT_EQ(Get(registry.get(), L"calendar", L"SDAdam"), L"<null>");
}

TEST_F(RegistryTest, ValueIsANewTextObjectWithOneReference) {
    const fs::path file = folder_ / "registry.ini";
    Write(file, "[Calendar]\nSDAdam=1\n");
    SmartPtr<IRegistry> registry = Open(file);
    SmartPtr<IString> section = NewText(L"Calendar");
    SmartPtr<IString> key = NewText(L"SDAdam");
    SmartPtr<IString> value;
    EXPECT_EQ(registry->GetValue(section.get(), key.get(), value.put()), S_OK);
    EXPECT_EQ(value->AddRef(), 2);
    EXPECT_EQ(value->Release(), 1);
    EXPECT_EQ(value.detach()->Release(), 0);
    EXPECT_EQ(RefsHeld(section.get()), 1);
    EXPECT_EQ(RefsHeld(key.get()), 1);
}

TEST_F(RegistryTest, AChangeTakesEffectAtTheNextQuery) {
    const fs::path file = folder_ / "registry.ini";
    Write(file, "[Calendar]\nSDAdam=1\n");
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam"), L"1");
    Write(file, "[Calendar]\nSDAdam=2\n");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam"), L"2");
    fs::remove(file);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam"), L"<null>");
}

TEST_F(RegistryTest, MalformedFileGivesItsCodeAndIsNotOverwritten) {
    const fs::path file = folder_ / "registry.ini";
    const std::string broken = "[Calendar]\nSDAdam=1\nthis line has no equals sign\n";
    Write(file, broken);
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam", kMalformed), L"<null>");
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"2"), kMalformed);
    EXPECT_EQ(Read(file), broken);
}

TEST_F(RegistryTest, OversizedFileIsMalformed) {
    const fs::path file = folder_ / "registry.ini";
    Write(file, "[Calendar]\nSDAdam=1\n" + std::string(1 << 20, '\n'));
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam", kMalformed), L"<null>");
}

TEST_F(RegistryTest, UnreadableFileGivesItsCode) {
    SmartPtr<IRegistry> registry = Open(folder_);  // a folder, not a file
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam", kReadFailed), L"<null>");
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"1"), kReadFailed);
}

TEST_F(RegistryTest, UnwritableLocationGivesItsCode) {
    const fs::path blocker = folder_ / "file";
    Write(blocker, "x");
    SmartPtr<IRegistry> registry = Open(blocker / "registry.ini");  // a file where a folder should be
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"1"), kWriteFailed);
    EXPECT_EQ(Read(blocker), "x");
}

TEST_F(RegistryTest, SetValueWritesAtomicallyAndCreatesFolders) {
    const fs::path file = folder_ / "a" / "b" / "registry.ini";
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"1"), S_OK);
    EXPECT_EQ(Read(file), "[Calendar]\nSDAdam=1\n");
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDGeneric", L"-3"), S_OK);
    EXPECT_EQ(Read(file), "[Calendar]\nSDAdam=1\nSDGeneric=-3\n");
    // Only the registry file remains: the temporary file was renamed over it.
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(file.parent_path())) names.push_back(entry.path().filename());
    EXPECT_EQ(names, std::vector<std::string>{"registry.ini"});
    struct stat info {};
    ASSERT_EQ(stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0644u);
}

TEST_F(RegistryTest, ReplacingKeepsPermissionsCommentsAndOtherEntries) {
    const fs::path file = folder_ / "registry.ini";
    Write(file, "# kept\n[Calendar]\nSDAdam=1\n\n[Other]\nX=y\n");
    ASSERT_EQ(chmod(file.c_str(), 0600), 0);
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"730120"), S_OK);
    EXPECT_EQ(Read(file), "# kept\n[Calendar]\nSDAdam=730120\n\n[Other]\nX=y\n");
    struct stat info {};
    ASSERT_EQ(stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST_F(RegistryTest, NullValueRemovesTheKey) {
    const fs::path file = folder_ / "registry.ini";
    Write(file, "[Calendar]\nSDAdam=1\nSDGeneric=2\n");
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", nullptr), S_OK);
    EXPECT_EQ(Read(file), "[Calendar]\nSDGeneric=2\n");
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam"), L"<null>");
    // Removing from a missing file creates nothing.
    SmartPtr<IRegistry> empty = Open(folder_ / "none.ini");
    EXPECT_EQ(Set(empty.get(), L"Calendar", L"SDAdam", nullptr), S_OK);
    EXPECT_FALSE(fs::exists(folder_ / "none.ini"));
}

TEST_F(RegistryTest, EveryTextSurvivesARoundTrip) {
    const fs::path file = folder_ / "registry.ini";
    SmartPtr<IRegistry> registry = Open(file);
    const wchar_t* const values[] = {
        L"",   L"  5", L"5 ", L"a\\b", L"line\nbreak", L"\tx", L"#1F", L"; not a comment", L"\u00FC\u20AC\U0001F600",
        L"[x]"};
    for (const wchar_t* value : values) {
        EXPECT_EQ(Set(registry.get(), L"Sekti\u00F6n", L"Key \u05D0", value), S_OK);
        SmartPtr<IRegistry> fresh = Open(file);
        EXPECT_EQ(Get(fresh.get(), L"Sekti\u00F6n", L"Key \u05D0"), value);
    }
}

TEST_F(RegistryTest, BadArgumentsGiveCodes) {
    const fs::path file = folder_ / "registry.ini";
    SmartPtr<IRegistry> registry = Open(file);
    SmartPtr<IString> text = NewText(L"x");
    SmartPtr<IString> value;
    EXPECT_EQ(registry->GetValue(text.get(), text.get(), nullptr), E_POINTER);
    EXPECT_EQ(registry->GetValue(nullptr, text.get(), value.put()), E_POINTER);
    EXPECT_EQ(registry->GetValue(text.get(), nullptr, value.put()), E_POINTER);
    EXPECT_EQ(registry->SetValue(nullptr, text.get(), text.get()), E_POINTER);
    EXPECT_EQ(registry->SetValue(text.get(), nullptr, text.get()), E_POINTER);
    const wchar_t* const bad_keys[] = {L"", L" lead", L"trail ", L"a=b", L"#c", L"[s", L"a\nb"};
    for (const wchar_t* key : bad_keys) EXPECT_EQ(Set(registry.get(), L"S", key, L"v"), E_INVALIDARG);
    EXPECT_EQ(Set(registry.get(), L"a\nb", L"k", L"v"), E_INVALIDARG);
    const wchar_t surrogate[] = {0xD800, 0};
    EXPECT_EQ(Set(registry.get(), L"S", L"k", surrogate), E_INVALIDARG);
    EXPECT_EQ(Get(registry.get(), L"S", surrogate, E_INVALIDARG), L"<null>");
    EXPECT_EQ(registry->GetFilePath(nullptr), E_POINTER);
    EXPECT_EQ(registry->SetFilePath(-1, L"x"), E_INVALIDARG);
    EXPECT_EQ(registry->SetFilePath(3, nullptr), E_POINTER);
    const wchar_t with_nul[] = {L'a', 0, L'b'};
    EXPECT_EQ(registry->SetFilePath(3, with_nul), E_INVALIDARG);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(RegistryTest, FilePathIsReportedAndDefaultsToTheEnvironment) {
    const fs::path file = folder_ / "env.ini";
    const char* saved = std::getenv("CALENDAR_REGISTRY");
    const std::string saved_value = saved ? saved : "";
    setenv("CALENDAR_REGISTRY", file.c_str(), 1);
    SmartPtr<IRegistry> registry = NewKit<IRegistry>(L"Registry", "IRegistry");
    SmartPtr<IString> path;
    EXPECT_EQ(registry->GetFilePath(path.put()), S_OK);
    EXPECT_EQ(TextOf(path.get()), file.wstring());
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"1"), S_OK);
    EXPECT_EQ(Read(file), "[Calendar]\nSDAdam=1\n");

    EXPECT_EQ(registry->SetFilePath(9, L"/tmp/o.ini"), S_OK);
    EXPECT_EQ(registry->GetFilePath(path.put()), S_OK);
    EXPECT_EQ(TextOf(path.get()), L"/tmp/o.in");
    EXPECT_EQ(registry->SetFilePath(0, nullptr), S_OK);
    EXPECT_EQ(registry->GetFilePath(path.put()), S_OK);
    EXPECT_EQ(TextOf(path.get()), file.wstring());
    if (saved) {
        setenv("CALENDAR_REGISTRY", saved_value.c_str(), 1);
    } else {
        unsetenv("CALENDAR_REGISTRY");
    }
}

// Runs body in a child process and returns its exit status.
template <class Body>
int InChildProcess(Body body) {
    const pid_t child = fork();
    if (child == 0) _exit(body());
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(RegistryTest, ValuePersistsAcrossProcesses) {
    const fs::path file = folder_ / "shared.ini";
    const int written = InChildProcess([&] {
        SmartPtr<IRegistry> registry = Open(file);
        SmartPtr<IString> s = NewText(L"Calendar");
        SmartPtr<IString> k = NewText(L"SDGeneric");
        SmartPtr<IString> v = NewText(L"1721424");
        return registry->SetValue(s.get(), k.get(), v.get()) == S_OK ? 0 : 1;
    });
    EXPECT_EQ(written, 0);
    const int read = InChildProcess([&] {
        SmartPtr<IRegistry> registry = Open(file);
        SmartPtr<IString> s = NewText(L"Calendar");
        SmartPtr<IString> k = NewText(L"SDGeneric");
        SmartPtr<IString> v;
        if (registry->GetValue(s.get(), k.get(), v.put()) != S_OK) return 2;
        return TextOf(v.get()) == L"1721424" ? 0 : 3;
    });
    EXPECT_EQ(read, 0);
    SmartPtr<IRegistry> registry = Open(file);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDGeneric"), L"1721424");
}

TEST_F(RegistryTest, FollowsASymbolicLink) {
    const fs::path target = folder_ / "real.ini";
    const fs::path link = folder_ / "link.ini";
    Write(target, "[Calendar]\nSDAdam=1\n");
    fs::create_symlink(target, link);
    SmartPtr<IRegistry> registry = Open(link);
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"2"), S_OK);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Read(target), "[Calendar]\nSDAdam=2\n");
}

TEST_F(RegistryTest, FifoInTheFilesPlaceIsNeitherReadNorReplaced) {
    const fs::path fifo = folder_ / "registry.ini";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    SmartPtr<IRegistry> registry = Open(fifo);
    // Both answer at once: no writer is waited for.
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam", kReadFailed), L"<null>");
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"1"), kReadFailed);
    EXPECT_TRUE(fs::is_fifo(fs::symlink_status(fifo)));
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"registry.ini"});
}

TEST_F(RegistryTest, CircleOfLinksIsUnreadable) {
    const fs::path link = folder_ / "registry.ini";
    fs::create_symlink("registry.ini", link);
    SmartPtr<IRegistry> registry = Open(link);
    EXPECT_EQ(Get(registry.get(), L"Calendar", L"SDAdam", kReadFailed), L"<null>");
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"1"), kReadFailed);
    EXPECT_TRUE(fs::is_symlink(link));
}

TEST_F(RegistryTest, DanglingLinkCreatesTheFileItNames) {
    const fs::path link = folder_ / "link.ini";
    fs::create_symlink("made.ini", link);
    SmartPtr<IRegistry> registry = Open(link);
    EXPECT_EQ(Set(registry.get(), L"Calendar", L"SDAdam", L"5"), S_OK);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Read(folder_ / "made.ini"), "[Calendar]\nSDAdam=5\n");
}

}  // namespace
