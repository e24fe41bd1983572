#include "hostkit/file_codes.h"

#include "hostkit/registry.h"
#include "hostkit/streams/stream_results.h"

namespace kit {

HRESULT StreamFileCode(const FileOutcome& outcome, FileDirection direction) {
    const bool reading = direction == FileDirection::kRead;
    switch (outcome.failure) {
        case FileFailure::kNone:
            return S_OK;
        case FileFailure::kMissing:
            return kE_FileNotFound;
        case FileFailure::kDenied:
        case FileFailure::kFolder:
            return kE_AccessDenied;
        case FileFailure::kNotRegular:
            return reading ? kE_ReadFault : kE_NotRegularFile;
        case FileFailure::kLinkLoop:
            return kE_LinkLoop;
        case FileFailure::kNoSpace:
            return kE_DiskFull;
        case FileFailure::kTooLarge:
            return E_OUTOFMEMORY;
        case FileFailure::kIo:
            break;
    }
    return reading ? kE_ReadFault : kE_WriteFault;
}

HRESULT RegistryWriteCode(const FileOutcome& outcome) {
    switch (outcome.failure) {
        case FileFailure::kNone:
            return S_OK;
        case FileFailure::kNoSpace:
            return kRegistryDiskFull;
        case FileFailure::kFolder:
        case FileFailure::kNotRegular:
            return kRegistryNotRegularFile;
        case FileFailure::kLinkLoop:
            return kRegistryLinkLoop;
        default:
            return kRegistryWriteFailed;
    }
}

}  // namespace kit
