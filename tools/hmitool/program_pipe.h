// Running another program, found on PATH, with text on its standard input (Graphviz's dot for graph).
#ifndef HMITOOL_PROGRAM_PIPE_H
#define HMITOOL_PROGRAM_PIPE_H

#include <string>
#include <vector>

namespace hmitool {

// The path of program ("dot"; ".exe" is added on Windows) in a directory of PATH; empty when none has it.
std::string FindOnPath(const std::string& program);

// Runs path with arguments (UTF-8, each passed as one argument) and input on its standard input. Its
// exit status (on Linux 128 + the signal that ended it), or -1 when it cannot be started.
int RunWithInput(const std::string& path, const std::vector<std::string>& arguments, const std::string& input);

}  // namespace hmitool

#endif
