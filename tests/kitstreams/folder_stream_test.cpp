// "FolderStream": named binary values, a byte area, and their file form.
#include <gtest/gtest.h>

#include <cstring>

#include "kitstreams/kit_streams_support.h"

namespace kitstreams_test {
namespace {

SmartPtr<IFolderStream> NewFolder() { return Make<IFolderStream>(L"FolderStream", HostIID("IFolderStream")); }

SmartPtr<IDataStream> AsData(IUnknown* stream) {
    SmartPtr<IDataStream> data;
    stream->QueryInterface(HostIID("IDataStream"), data.put_void());
    return data;
}

HRESULT Put(IFolderStream* folder, const wchar_t* name, std::string_view bytes) {
    return folder->WriteValue(Text(name).get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), 0);
}

std::int32_t ValueCount(IFolderStream* folder) {
    std::int32_t count = -1;
    folder->GetValueCount(&count);
    return count;
}

std::wstring ValueName(IFolderStream* folder, std::int32_t index) {
    SmartPtr<IString> name;
    folder->GetValueName(index, name.put());
    return TextOf(name.get());
}

// Value "Day" holding 05 00 and the byte area "ok", in file form.
const std::string_view kDayFile{
    "KFOLDER\x1A"
    "\x01\x00\x00\x00"  // version
    "\x01\x00\x00\x00"  // value count
    "\x02\x00\x00\x00"  // byte area length
    "\x03\x00\x00\x00"  // name length in code units
    "D\x00\x00\x00"
    "a\x00\x00\x00"
    "y\x00\x00\x00"
    "\x02\x00\x00\x00"  // data length
    "\x05\x00"
    "ok"
    "\xFD\xA8\xD8\x37",  // CRC-32 of everything before
    48};

// A reference CRC-32 (bit by bit), to seal hand-made files.
std::string Sealed(std::string body) {
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char c : body) {
        crc ^= static_cast<std::uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
    }
    crc = ~crc;
    for (int shift = 0; shift < 32; shift += 8) body.push_back(static_cast<char>((crc >> shift) & 0xFFu));
    return body;
}

TEST(FolderStream, ReferenceChecksumSealsTheDocumentedFile) {
    EXPECT_EQ(Sealed(std::string(kDayFile.substr(0, 44))), kDayFile);
}

SmartPtr<IFolderStream> DayFolder() {
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"Day", std::string_view("\x05\x00", 2));
    AsData(folder.get())->Write("ok", 2, nullptr);
    return folder;
}

TEST(FolderStream, ReferenceCountsAreSharedByBothInterfaces) {
    IFolderStream* folder = NewFolder().detach();
    ASSERT_NE(folder, nullptr);
    IDataStream* data = nullptr;
    EXPECT_EQ(folder->QueryInterface(HostIID("IDataStream"), reinterpret_cast<void**>(&data)), S_OK);
    EXPECT_EQ(folder->AddRef(), 3);
    EXPECT_EQ(data->Release(), 2);
    void* none = &none;
    EXPECT_EQ(folder->QueryInterface(HostIID("IXMLStream"), &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(folder->Release(), 1);
    EXPECT_EQ(folder->Release(), 0);
}

TEST(FolderStream, ValueReadsBackUnderItsNameAndSize) {
    SmartPtr<IFolderStream> folder = NewFolder();
    const float second = 30.5f;
    EXPECT_EQ(folder->WriteValue(Text(L"Second").get(), &second, 4, 0), S_OK);
    float back = 0.0f;
    EXPECT_EQ(folder->ReadValue(Text(L"Second").get(), &back, 4, 0), S_OK);
    EXPECT_EQ(back, 30.5f);
    std::int32_t size = -1;
    EXPECT_EQ(folder->GetValueSize(Text(L"Second").get(), &size), S_OK);
    EXPECT_EQ(size, 4);
}

TEST(FolderStream, SizeMismatchFailsAndLeavesTheDestination) {
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"Day", std::string_view("\x05\x00", 2));
    char destination[4] = {'a', 'b', 'c', 'd'};
    EXPECT_EQ(folder->ReadValue(Text(L"Day").get(), destination, 4, 0), kSizeMismatch);
    EXPECT_EQ(folder->ReadValue(Text(L"Day").get(), destination, 1, 0), kSizeMismatch);
    EXPECT_EQ(std::string(destination, 4), "abcd");
}

TEST(FolderStream, MissingNameFailsAndLeavesTheDestination) {
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"Day", std::string_view("\x05\x00", 2));
    char destination[2] = {'a', 'b'};
    EXPECT_EQ(folder->ReadValue(Text(L"day").get(), destination, 2, 0), kNameNotFound);
    EXPECT_EQ(std::string(destination, 2), "ab");
    std::int32_t size = 77;
    EXPECT_EQ(folder->GetValueSize(Text(L"Month").get(), &size), kNameNotFound);
    EXPECT_EQ(size, 77);
    EXPECT_EQ(folder->RemoveValue(Text(L"Month").get()), kNameNotFound);
}

TEST(FolderStream, RewritingANameReplacesItsValueInPlace) {
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"A", "1");
    Put(folder.get(), L"B", "22");
    Put(folder.get(), L"A", "333");
    EXPECT_EQ(ValueCount(folder.get()), 2);
    EXPECT_EQ(ValueName(folder.get(), 0), L"A");
    EXPECT_EQ(ValueName(folder.get(), 1), L"B");
    char back[3] = {};
    EXPECT_EQ(folder->ReadValue(Text(L"A").get(), back, 3, 0), S_OK);
    EXPECT_EQ(std::string(back, 3), "333");
}

TEST(FolderStream, RemoveValueKeepsTheOrderOfTheRest) {
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"A", "1");
    Put(folder.get(), L"B", "2");
    Put(folder.get(), L"C", "3");
    EXPECT_EQ(folder->RemoveValue(Text(L"B").get()), S_OK);
    EXPECT_EQ(ValueCount(folder.get()), 2);
    EXPECT_EQ(ValueName(folder.get(), 0), L"A");
    EXPECT_EQ(ValueName(folder.get(), 1), L"C");
}

TEST(FolderStream, ValueNameOutOfRangeGetsACode) {
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"A", "1");
    IString* name = reinterpret_cast<IString*>(&name);
    EXPECT_EQ(folder->GetValueName(1, &name), E_INVALIDARG);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(folder->GetValueName(-1, &name), E_INVALIDARG);
    EXPECT_EQ(folder->GetValueName(0, nullptr), E_POINTER);
    EXPECT_EQ(folder->GetValueName(0, &name), S_OK);
    EXPECT_EQ(RefCount(name), 1);
    EXPECT_EQ(name->Release(), 0);
}

TEST(FolderStream, BadArgumentsGetCodesAndChangeNothing) {
    SmartPtr<IFolderStream> folder = NewFolder();
    EXPECT_EQ(folder->WriteValue(nullptr, "x", 1, 0), E_POINTER);
    EXPECT_EQ(folder->WriteValue(Text(L"").get(), "x", 1, 0), E_INVALIDARG);
    EXPECT_EQ(folder->WriteValue(Text(L"A").get(), "x", -1, 0), E_INVALIDARG);
    EXPECT_EQ(folder->WriteValue(Text(L"A").get(), nullptr, 1, 0), E_POINTER);
    const wchar_t with_nul[] = {L'a', L'\0', L'b'};
    SmartPtr<IString> nul_name = Text(std::wstring_view(with_nul, 3));
    EXPECT_EQ(folder->WriteValue(nul_name.get(), "x", 1, 0), E_INVALIDARG);
    EXPECT_EQ(folder->WriteValue(Text(std::wstring(4097, L'n')).get(), "x", 1, 0), E_INVALIDARG);
    EXPECT_EQ(ValueCount(folder.get()), 0);
    Put(folder.get(), L"A", "x");
    char byte = 0;
    EXPECT_EQ(folder->ReadValue(Text(L"A").get(), nullptr, 1, 0), E_POINTER);
    EXPECT_EQ(folder->ReadValue(Text(L"A").get(), &byte, -1, 0), E_INVALIDARG);
    EXPECT_EQ(folder->ReadValue(nullptr, &byte, 1, 0), E_POINTER);
    EXPECT_EQ(folder->GetValueSize(Text(L"A").get(), nullptr), E_POINTER);
    EXPECT_EQ(folder->GetValueCount(nullptr), E_POINTER);
    EXPECT_EQ(folder->RemoveValue(nullptr), E_POINTER);
    EXPECT_EQ(ValueCount(folder.get()), 1);
}

TEST(FolderStream, EmptyValuesAreValues) {
    SmartPtr<IFolderStream> folder = NewFolder();
    EXPECT_EQ(folder->WriteValue(Text(L"Empty").get(), nullptr, 0, 0), S_OK);
    std::int32_t size = -1;
    EXPECT_EQ(folder->GetValueSize(Text(L"Empty").get(), &size), S_OK);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(folder->ReadValue(Text(L"Empty").get(), nullptr, 0, 0), S_OK);
}

TEST(FolderStream, ByteAreaIsSeparateFromTheValues) {
    SmartPtr<IFolderStream> folder = DayFolder();
    SmartPtr<IDataStream> data = AsData(folder.get());
    std::int32_t size = 0;
    data->GetSize(&size);
    EXPECT_EQ(size, 2);
    EXPECT_EQ(ReadAll(data.get()), "ok");
    EXPECT_EQ(ValueCount(folder.get()), 1);
}

TEST(FolderStream, FileHasTheDocumentedLayout) {
    ScratchFolder scratch;
    SmartPtr<IFolderStream> folder = DayFolder();
    ASSERT_EQ(SaveStream(AsData(folder.get()).get(), scratch.File("day.fld")), S_OK);
    EXPECT_EQ(ReadBytes(scratch.File("day.fld")), kDayFile);
    EXPECT_EQ(scratch.Listing(), "day.fld;");
}

TEST(FolderStream, FileRoundTripKeepsNamesOrderValuesAndBytes) {
    ScratchFolder scratch;
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"Zeta", std::string_view("\x00\xFF", 2));
    Put(folder.get(), L"\u00C4lpha \U0001F600", "text");
    Put(folder.get(), L"Empty", "");
    AsData(folder.get())->Write("\x01\x02\x03", 3, nullptr);
    ASSERT_EQ(SaveStream(AsData(folder.get()).get(), scratch.File("f.fld")), S_OK);

    SmartPtr<IFolderStream> loaded = NewFolder();
    Put(loaded.get(), L"Old", "x");
    ASSERT_EQ(LoadStream(AsData(loaded.get()).get(), scratch.File("f.fld")), S_OK);
    ASSERT_EQ(ValueCount(loaded.get()), 3);
    EXPECT_EQ(ValueName(loaded.get(), 0), L"Zeta");
    EXPECT_EQ(ValueName(loaded.get(), 1), L"\u00C4lpha \U0001F600");
    EXPECT_EQ(ValueName(loaded.get(), 2), L"Empty");
    char zeta[2] = {};
    EXPECT_EQ(loaded->ReadValue(Text(L"Zeta").get(), zeta, 2, 0), S_OK);
    EXPECT_EQ(std::string(zeta, 2), std::string("\x00\xFF", 2));
    char alpha[4] = {};
    EXPECT_EQ(loaded->ReadValue(Text(L"\u00C4lpha \U0001F600").get(), alpha, 4, 0), S_OK);
    EXPECT_EQ(std::string(alpha, 4), "text");
    EXPECT_EQ(ReadAll(AsData(loaded.get()).get()), "\x01\x02\x03");
}

void ExpectEmpty(IFolderStream* folder, const char* what) {
    EXPECT_EQ(ValueCount(folder), 0) << what;
    std::int32_t size = -1;
    AsData(folder)->GetSize(&size);
    EXPECT_EQ(size, 0) << what;
}

TEST(FolderStream, EveryStrictPrefixOfAFileIsTruncated) {
    ScratchFolder scratch;
    for (std::size_t length = 0; length < kDayFile.size(); ++length) {
        WriteBytes(scratch.File("cut.fld"), kDayFile.substr(0, length));
        SmartPtr<IFolderStream> loaded = DayFolder();
        EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), scratch.File("cut.fld")), kTruncated) << length;
        ExpectEmpty(loaded.get(), "prefix");
    }
    WriteBytes(scratch.File("cut.fld"), kDayFile);
    SmartPtr<IFolderStream> loaded = NewFolder();
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), scratch.File("cut.fld")), S_OK);
    EXPECT_EQ(ValueCount(loaded.get()), 1);
}

TEST(FolderStream, EveryFlippedByteFailsCleanly) {
    ScratchFolder scratch;
    for (std::size_t at = 0; at < kDayFile.size(); ++at) {
        std::string file(kDayFile);
        file[at] = static_cast<char>(file[at] ^ 0x5A);
        WriteBytes(scratch.File("flip.fld"), file);
        SmartPtr<IFolderStream> loaded = DayFolder();
        const HRESULT hr = LoadStream(AsData(loaded.get()).get(), scratch.File("flip.fld"));
        EXPECT_TRUE(hr == kCorrupt || hr == kTruncated) << at << " " << std::hex << hr;
        ExpectEmpty(loaded.get(), "flipped");
    }
}

struct CorruptFolderFile {
    const char* what;
    std::size_t offset;  // where the four replaced bytes start
    std::string_view replacement;
    HRESULT expected;
};

const CorruptFolderFile kCorruptFolderFiles[] = {
    {"magic", 0, "XFOL", kCorrupt},
    {"version 2", 8, std::string_view("\x02\x00\x00\x00", 4), kCorrupt},
    {"count above the limit", 12, std::string_view("\x01\x00\x10\x00", 4), kCorrupt},
    // The byte area and checksum are then read as a record with a name length out of range.
    {"count beyond the records", 12, std::string_view("\x00\x00\x01\x00", 4), kCorrupt},
    {"byte area beyond the file", 16, std::string_view("\x00\x01\x00\x00", 4), kTruncated},
    {"name length 0", 20, std::string_view("\x00\x00\x00\x00", 4), kCorrupt},
    {"name length above the limit", 20, std::string_view("\x01\x10\x00\x00", 4), kCorrupt},
    {"name unit a surrogate", 24, std::string_view("\x00\xD8\x00\x00", 4), kCorrupt},
    {"data length beyond the file", 36, std::string_view("\xFF\xFF\xFF\x7F", 4), kTruncated},
    {"data length above a stream", 36, std::string_view("\xFF\xFF\xFF\xFF", 4), kCorrupt},
    {"checksum", 44, std::string_view("\x00\x00\x00\x00", 4), kCorrupt},
};

TEST(FolderStream, CorruptedFieldsGetTheirCodes) {
    ScratchFolder scratch;
    for (const CorruptFolderFile& corrupt : kCorruptFolderFiles) {
        std::string file(kDayFile);
        file.replace(corrupt.offset, corrupt.replacement.size(), corrupt.replacement);
        WriteBytes(scratch.File("bad.fld"), file);
        SmartPtr<IFolderStream> loaded = DayFolder();
        EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), scratch.File("bad.fld")), corrupt.expected) << corrupt.what;
        ExpectEmpty(loaded.get(), corrupt.what);
    }
}

TEST(FolderStream, TrailingBytesAreCorruption) {
    ScratchFolder scratch;
    WriteBytes(scratch.File("long.fld"), std::string(kDayFile) + "x");
    SmartPtr<IFolderStream> loaded = DayFolder();
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), scratch.File("long.fld")), kCorrupt);
    ExpectEmpty(loaded.get(), "trailing");
}

TEST(FolderStream, RepeatedNamesAreCorruption) {
    ScratchFolder scratch;
    SmartPtr<IFolderStream> folder = NewFolder();
    Put(folder.get(), L"A", "1");
    Put(folder.get(), L"B", "2");
    ASSERT_EQ(SaveStream(AsData(folder.get()).get(), scratch.File("ab.fld")), S_OK);
    std::string file = ReadBytes(scratch.File("ab.fld"));
    file[37] = 'A';  // the name of the second record: header 20, first record 13, name length 4
    file.resize(file.size() - 4);
    WriteBytes(scratch.File("ab.fld"), Sealed(file));
    SmartPtr<IFolderStream> loaded = NewFolder();
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), scratch.File("ab.fld")), kCorrupt);
    ExpectEmpty(loaded.get(), "repeated");
}

TEST(FolderStream, LoadOfAMissingFileKeepsTheValues) {
    ScratchFolder scratch;
    SmartPtr<IFolderStream> folder = DayFolder();
    EXPECT_EQ(LoadStream(AsData(folder.get()).get(), scratch.File("absent.fld")), kFileNotFound);
    EXPECT_EQ(ValueCount(folder.get()), 1);
}

}  // namespace
}  // namespace kitstreams_test
