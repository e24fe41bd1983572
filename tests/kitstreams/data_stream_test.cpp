// "DataStream": the kit's memory byte stream.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "kitstreams/kit_streams_support.h"

namespace kitstreams_test {
namespace {

SmartPtr<IDataStream> NewStream() { return Make<IDataStream>(L"DataStream", HostIID("IDataStream")); }

TEST(DataStream, ReferenceCountsBalance) {
    IDataStream* stream = NewStream().detach();
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(stream->AddRef(), 2);
    IUnknown* unknown = nullptr;
    EXPECT_EQ(stream->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)), S_OK);
    EXPECT_EQ(unknown, static_cast<IUnknown*>(stream));
    EXPECT_EQ(unknown->Release(), 2);
    EXPECT_EQ(stream->Release(), 1);
    EXPECT_EQ(stream->Release(), 0);
}

TEST(DataStream, AnswersOnlyTheDataStream) {
    SmartPtr<IDataStream> stream = NewStream();
    void* out = &out;
    EXPECT_EQ(stream->QueryInterface(HostIID("IXMLStream"), &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(stream->QueryInterface(HostIID("IFolderStream"), &out), E_NOINTERFACE);
    EXPECT_EQ(stream->QueryInterface(HostIID("IDataStream"), nullptr), E_POINTER);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TEST(DataStream, CreationForAnUnansweredInterfaceFails) {
    void* out = &out;
    CREATEFUNCTION create = Kit().Factory(L"DataStream");
    ASSERT_NE(create, nullptr);
    const IID iid = HostIID("ITime");
    EXPECT_EQ(create(nullptr, &iid, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(create(nullptr, nullptr, &out), E_POINTER);
}

TEST(DataStream, NewStreamIsEmpty) {
    SmartPtr<IDataStream> stream = NewStream();
    std::int32_t size = -1;
    std::int32_t position = -1;
    EXPECT_EQ(stream->GetSize(&size), S_OK);
    EXPECT_EQ(stream->GetPosition(&position), S_OK);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(position, 0);
    char byte = 'x';
    std::int32_t done = 1;
    EXPECT_EQ(stream->Read(&byte, 1, &done), S_OK);
    EXPECT_EQ(done, 0);
    EXPECT_EQ(byte, 'x');
}

TEST(DataStream, WriteThenReadIsByteExact) {
    SmartPtr<IDataStream> stream = NewStream();
    const unsigned char bytes[] = {0x03, 0x00, 0x00, 0x00, 0xFF, 0x00, 0x80, 0x7F, 0x0A};
    std::int32_t done = 9;
    EXPECT_EQ(stream->Write(bytes, 9, &done), S_OK);
    EXPECT_EQ(done, 9);
    std::int32_t position = -1;
    stream->GetPosition(&position);
    EXPECT_EQ(position, 9);
    EXPECT_EQ(stream->Rewind(), S_OK);
    unsigned char back[9] = {};
    done = 9;
    EXPECT_EQ(stream->Read(back, 9, &done), S_OK);
    EXPECT_EQ(done, 9);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(back), 9), std::string(reinterpret_cast<const char*>(bytes), 9));
}

TEST(DataStream, ReadNearTheEndDeliversWhatIsLeftThenZero) {
    SmartPtr<IDataStream> stream = NewStream();
    std::int32_t done = 5;
    stream->Write("abcde", 5, &done);
    stream->Rewind();
    char buffer[4] = {'.', '.', '.', '.'};
    done = 4;
    EXPECT_EQ(stream->Read(buffer, 4, &done), S_OK);
    EXPECT_EQ(done, 4);
    done = 4;
    EXPECT_EQ(stream->Read(buffer, 4, &done), S_OK);
    EXPECT_EQ(done, 1);
    EXPECT_EQ(std::string(buffer, 4), "ebcd");
    done = 4;
    EXPECT_EQ(stream->Read(buffer, 4, &done), S_OK);
    EXPECT_EQ(done, 0);
    std::int32_t position = -1;
    stream->GetPosition(&position);
    EXPECT_EQ(position, 5);
}

TEST(DataStream, WriteAfterRewindOverwritesAndKeepsTheTail) {
    SmartPtr<IDataStream> stream = NewStream();
    std::int32_t done = 0;
    stream->Write("abcdef", 6, &done);
    stream->Rewind();
    stream->Write("XY", 2, &done);
    std::int32_t size = 0;
    stream->GetSize(&size);
    EXPECT_EQ(size, 6);
    EXPECT_EQ(ReadAll(stream.get()), "XYcdef");
}

TEST(DataStream, BadArgumentsGetCodesAndChangeNothing) {
    SmartPtr<IDataStream> stream = NewStream();
    std::int32_t done = 3;
    EXPECT_EQ(stream->Write(nullptr, 3, &done), E_POINTER);
    EXPECT_EQ(done, 0);
    done = -1;
    EXPECT_EQ(stream->Write("abc", -1, &done), E_INVALIDARG);
    EXPECT_EQ(done, 0);
    done = 3;
    EXPECT_EQ(stream->Read(nullptr, 3, &done), E_POINTER);
    EXPECT_EQ(done, 0);
    char byte = 0;
    EXPECT_EQ(stream->Read(&byte, -5, &done), E_INVALIDARG);
    EXPECT_EQ(stream->GetSize(nullptr), E_POINTER);
    EXPECT_EQ(stream->GetPosition(nullptr), E_POINTER);
    std::int32_t size = -1;
    stream->GetSize(&size);
    EXPECT_EQ(size, 0);
}

TEST(DataStream, ZeroSizedTransfersWithNullBuffersSucceed) {
    SmartPtr<IDataStream> stream = NewStream();
    std::int32_t done = 7;
    EXPECT_EQ(stream->Write(nullptr, 0, &done), S_OK);
    EXPECT_EQ(done, 0);
    done = 7;
    EXPECT_EQ(stream->Read(nullptr, 0, &done), S_OK);
    EXPECT_EQ(done, 0);
}

TEST(DataStream, DoneIsOptional) {
    SmartPtr<IDataStream> stream = NewStream();
    EXPECT_EQ(stream->Write("ab", 2, nullptr), S_OK);
    stream->Rewind();
    char buffer[2] = {};
    EXPECT_EQ(stream->Read(buffer, 2, nullptr), S_OK);
    EXPECT_EQ(std::string(buffer, 2), "ab");
}

TEST(DataStream, FileRoundTripKeepsRawBytes) {
    ScratchFolder folder;
    SmartPtr<IDataStream> stream = NewStream();
    const std::string bytes("\x00\x01\xFE\xFFz\r\n", 7);
    std::int32_t done = 0;
    stream->Write(bytes.data(), 7, &done);
    EXPECT_EQ(SaveStream(stream.get(), folder.File("raw.bin")), S_OK);
    EXPECT_EQ(ReadBytes(folder.File("raw.bin")), bytes);
    EXPECT_EQ(folder.Listing(), "raw.bin;");  // no temporary file left behind

    SmartPtr<IDataStream> loaded = NewStream();
    EXPECT_EQ(LoadStream(loaded.get(), folder.File("raw.bin")), S_OK);
    std::int32_t size = 0;
    std::int32_t position = -1;
    loaded->GetSize(&size);
    loaded->GetPosition(&position);
    EXPECT_EQ(size, 7);
    EXPECT_EQ(position, 0);
    EXPECT_EQ(ReadAll(loaded.get()), bytes);
}

TEST(DataStream, SaveReplacesAnExistingFile) {
    ScratchFolder folder;
    WriteBytes(folder.File("raw.bin"), "old content that is longer");
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("new", 3, nullptr);
    EXPECT_EQ(SaveStream(stream.get(), folder.File("raw.bin")), S_OK);
    EXPECT_EQ(ReadBytes(folder.File("raw.bin")), "new");
    EXPECT_EQ(folder.Listing(), "raw.bin;");
}

TEST(DataStream, LoadOfAMissingFileFailsAndKeepsTheStream) {
    ScratchFolder folder;
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("keep", 4, nullptr);
    EXPECT_EQ(LoadStream(stream.get(), folder.File("absent.bin")), kFileNotFound);
    EXPECT_EQ(ReadAll(stream.get()), "keep");
}

TEST(DataStream, FoldersAreNotStreamFiles) {
    ScratchFolder folder;
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("keep", 4, nullptr);
    EXPECT_EQ(LoadStream(stream.get(), folder.File("")), static_cast<HRESULT>(0x80070005u));
    EXPECT_EQ(ReadAll(stream.get()), "keep");
    EXPECT_EQ(SaveStream(stream.get(), folder.File("")), static_cast<HRESULT>(0x80070005u));
    EXPECT_EQ(folder.Listing(), "");
}

TEST(DataStream, SaveIntoAMissingFolderFailsCleanly) {
    ScratchFolder folder;
    SmartPtr<IDataStream> stream = NewStream();
    EXPECT_EQ(SaveStream(stream.get(), folder.File("no/such/folder.bin")), kFileNotFound);
    EXPECT_EQ(folder.Listing(), "");
}

TEST(DataStream, BadPathsGetCodes) {
    SmartPtr<IDataStream> stream = NewStream();
    EXPECT_EQ(stream->SaveToFile(0, L"x"), E_INVALIDARG);
    EXPECT_EQ(stream->SaveToFile(-1, L"x"), E_INVALIDARG);
    EXPECT_EQ(stream->SaveToFile(4, nullptr), E_POINTER);
    EXPECT_EQ(stream->LoadFromFile(0, L"x"), E_INVALIDARG);
    EXPECT_EQ(stream->LoadFromFile(3, nullptr), E_POINTER);
    const wchar_t embedded_nul[] = {L'a', L'\0', L'b'};
    EXPECT_EQ(stream->SaveToFile(3, embedded_nul), E_INVALIDARG);
    const wchar_t surrogate[] = {L'a', static_cast<wchar_t>(0xD800)};
    EXPECT_EQ(stream->LoadFromFile(2, surrogate), E_INVALIDARG);
}

TEST(DataStream, WidePathsAreUtf8FileNames) {
    ScratchFolder folder;
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("x", 1, nullptr);
    const std::wstring path = Wide(folder.File("")) + L"\u00E9t\u00E9.bin";
    EXPECT_EQ(stream->SaveToFile(static_cast<std::int32_t>(path.size()), path.data()), S_OK);
    EXPECT_EQ(folder.Listing(), "\xC3\xA9t\xC3\xA9.bin;");
}

constexpr HRESULT kNotRegularFile = static_cast<HRESULT>(0x800700DEu);
constexpr HRESULT kLinkLoop = static_cast<HRESULT>(0x80070781u);

std::string LinkText(const std::string& path) {
    char buffer[4096];
    const ssize_t length = ::readlink(path.c_str(), buffer, sizeof buffer);
    return length < 0 ? std::string() : std::string(buffer, static_cast<std::size_t>(length));
}

TEST(DataStream, SaveRefusesAFifoAndLeavesIt) {
    ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("x", 1, nullptr);
    EXPECT_EQ(SaveStream(stream.get(), folder.File("pipe")), kNotRegularFile);
    struct stat info {};
    ASSERT_EQ(::lstat(folder.File("pipe").c_str(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_EQ(folder.Listing(), "pipe;");
    // Loading it answers at once, without waiting for a writer.
    EXPECT_EQ(LoadStream(stream.get(), folder.File("pipe")), static_cast<HRESULT>(0x8007001Eu));
}

TEST(DataStream, SaveThroughALinkKeepsTheLink) {
    ScratchFolder folder;
    WriteBytes(folder.File("real.bin"), "old");
    ASSERT_EQ(::symlink("real.bin", folder.File("link.bin").c_str()), 0);
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("new", 3, nullptr);
    EXPECT_EQ(SaveStream(stream.get(), folder.File("link.bin")), S_OK);
    EXPECT_EQ(LinkText(folder.File("link.bin")), "real.bin");
    EXPECT_EQ(ReadBytes(folder.File("real.bin")), "new");
    EXPECT_EQ(folder.Listing(), "link.bin;real.bin;");
}

TEST(DataStream, CircleOfLinksGetsItsCode) {
    ScratchFolder folder;
    ASSERT_EQ(::symlink("b", folder.File("a").c_str()), 0);
    ASSERT_EQ(::symlink("a", folder.File("b").c_str()), 0);
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("keep", 4, nullptr);
    EXPECT_EQ(SaveStream(stream.get(), folder.File("a")), kLinkLoop);
    EXPECT_EQ(LoadStream(stream.get(), folder.File("a")), kLinkLoop);
    EXPECT_EQ(ReadAll(stream.get()), "keep");
    EXPECT_EQ(folder.Listing(), "a;b;");
}

TEST(DataStream, SaveKeepsTheModeOfTheOldFile) {
    ScratchFolder folder;
    WriteBytes(folder.File("private.bin"), "old");
    ASSERT_EQ(::chmod(folder.File("private.bin").c_str(), 0600), 0);
    SmartPtr<IDataStream> stream = NewStream();
    stream->Write("new", 3, nullptr);
    EXPECT_EQ(SaveStream(stream.get(), folder.File("private.bin")), S_OK);
    struct stat info {};
    ASSERT_EQ(::stat(folder.File("private.bin").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0600u);
    EXPECT_EQ(ReadBytes(folder.File("private.bin")), "new");
}

}  // namespace
}  // namespace kitstreams_test
