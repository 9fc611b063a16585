// Runs one of the project's programs as a user would from a shell, for the tests of its output.
#ifndef HMI_TEST_RUN_PROGRAM_H
#define HMI_TEST_RUN_PROGRAM_H

#include <string>
#include <vector>

#include "platform/platform.h"

namespace hmitest {

struct ProgramRun {
    std::string output;  // stdout and stderr
    int status = -1;     // the exit code; -1 when it could not be run
};

// program: its path on Linux; on Windows its file name, found beside the test. Arguments are UTF-8 and
// reach the program intact (on Windows as a wide command line).
ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments);

// UTF-16 text (a printer's name) as a UTF-8 argument.
std::string Utf8(const std::basic_string<WCHAR>& text);

}  // namespace hmitest

#endif
