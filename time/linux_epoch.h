// The star date of the Linux epoch, 1970-01-01 00:00.
#pragma once

// 0.0 until the first Linux-time operation fills it with 719165.0.
extern double SDLinux;

// SDLinux, filled on first use.
double LinuxEpochStarDate() noexcept;
