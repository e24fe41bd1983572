// timetool: the command-line host of the Calendar module.
#include "checked_output.h"
#include "command_line.h"

int main(int argc, char** argv) {
    timetool::InstallCheckedOutput();
    return timetool::FinishOutput(timetool::RunCommandLine(argc, argv));
}
