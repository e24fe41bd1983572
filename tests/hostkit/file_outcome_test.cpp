// What hosts and people are told about a file outcome: result codes and one line.
#include "hostkit/file_outcome.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "hostkit/file_codes.h"

namespace kit {
namespace {

TEST(FailureFromErrno, SystemErrorsByKind) {
    EXPECT_EQ(FailureFromErrno(ENOENT), FileFailure::kMissing);
    EXPECT_EQ(FailureFromErrno(ENOTDIR), FileFailure::kMissing);
    EXPECT_EQ(FailureFromErrno(EACCES), FileFailure::kDenied);
    EXPECT_EQ(FailureFromErrno(EPERM), FileFailure::kDenied);
    EXPECT_EQ(FailureFromErrno(EROFS), FileFailure::kDenied);
    EXPECT_EQ(FailureFromErrno(EISDIR), FileFailure::kFolder);
    EXPECT_EQ(FailureFromErrno(ELOOP), FileFailure::kLinkLoop);
    EXPECT_EQ(FailureFromErrno(ENOSPC), FileFailure::kNoSpace);
    EXPECT_EQ(FailureFromErrno(EDQUOT), FileFailure::kNoSpace);
    EXPECT_EQ(FailureFromErrno(EFBIG), FileFailure::kTooLarge);
    EXPECT_EQ(FailureFromErrno(EIO), FileFailure::kIo);
    EXPECT_EQ(FailureFromErrno(EXDEV), FileFailure::kIo);
}

struct CodeCase {
    FileFailure failure;
    std::uint32_t read;      // LoadFromFile
    std::uint32_t write;     // SaveToFile
    std::uint32_t registry;  // SetValue
};

const CodeCase kCodes[] = {
    {FileFailure::kNone, 0, 0, 0},
    {FileFailure::kMissing, 0x80070002u, 0x80070002u, 0x8007001Du},
    {FileFailure::kDenied, 0x80070005u, 0x80070005u, 0x8007001Du},
    {FileFailure::kFolder, 0x80070005u, 0x80070005u, 0x800700DEu},
    {FileFailure::kNotRegular, 0x8007001Eu, 0x800700DEu, 0x800700DEu},
    {FileFailure::kLinkLoop, 0x80070781u, 0x80070781u, 0x80070781u},
    {FileFailure::kNoSpace, 0x80070070u, 0x80070070u, 0x80070070u},
    {FileFailure::kTooLarge, 0x8007000Eu, 0x8007000Eu, 0x8007001Du},
    {FileFailure::kIo, 0x8007001Eu, 0x8007001Du, 0x8007001Du},
};

TEST(FileCodes, EachFailureHasItsCode) {
    for (const CodeCase& c : kCodes) {
        const FileOutcome outcome{FileStep::kWrite, c.failure, 0};
        const int kind = static_cast<int>(c.failure);
        EXPECT_EQ(static_cast<std::uint32_t>(StreamFileCode(outcome, FileDirection::kRead)), c.read) << kind;
        EXPECT_EQ(static_cast<std::uint32_t>(StreamFileCode(outcome, FileDirection::kWrite)), c.write) << kind;
        EXPECT_EQ(static_cast<std::uint32_t>(RegistryWriteCode(outcome)), c.registry) << kind;
    }
}

TEST(DescribeFileOutcome, NamesTheFileTheReasonAndTheStep) {
    EXPECT_EQ(DescribeFileOutcome({FileStep::kWrite, FileFailure::kNoSpace, ENOSPC}, "save", "a.xml"),
              "cannot save a.xml: no space left on the device (writing the temporary file)");
    EXPECT_EQ(DescribeFileOutcome({FileStep::kRename, FileFailure::kIo, EXDEV}, "save", "a.xml"),
              "cannot save a.xml: Invalid cross-device link (renaming the temporary file over the target)");
    EXPECT_EQ(DescribeFileOutcome({FileStep::kInspect, FileFailure::kNotRegular, 0}, "save", "p"),
              "cannot save p: not a regular file (a device, FIFO or socket); it was left untouched");
    EXPECT_EQ(DescribeFileOutcome({FileStep::kInspect, FileFailure::kFolder, EISDIR}, "read", "d"),
              "cannot read d: a folder stands at that path");
    EXPECT_EQ(DescribeFileOutcome({FileStep::kResolve, FileFailure::kLinkLoop, ELOOP}, "save", "l"),
              "cannot save l: too many levels of symbolic links (following symbolic links)");
    EXPECT_EQ(DescribeFileOutcome({}, "save", "x"), "");
}

}  // namespace
}  // namespace kit
