// Standard output and standard error as timetool writes them: a write that
// fails (a full disk, an I/O error, a file size limit) is remembered with its
// reason, so the run can end with status 1 and say so instead of exiting 0
// with its output lost.
#pragma once

namespace timetool {

// Routes std::cout and std::cerr through the C streams stdout and stderr
// (keeping their order with anything written there directly), remembering
// the first failure of each. SIGPIPE gets its default action back, so a
// reader that goes away ends the run at once and quietly, even when the
// caller ignored the signal.
void InstallCheckedOutput();

// Flushes and closes both streams, then gives the run's status: `status` when
// everything was written, else 1 (or `status` when that already tells of a
// failure) after one message on standard error naming the stream and the
// reason. A reader that went away (EPIPE) gets no message.
int FinishOutput(int status);

}  // namespace timetool
