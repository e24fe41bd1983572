// The star date of the Linux epoch, 1970-01-01 00:00.
#pragma once

// SDLinux: filled on first use, 719165.0 thereafter.
double LinuxEpochStarDate() noexcept;
