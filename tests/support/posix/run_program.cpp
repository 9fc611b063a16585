#include "support/run_program.h"

#include <sys/wait.h>

#include <cstdio>

namespace hmitest {

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments) {
    std::string command = "'" + program + "'";
    for (const std::string& argument : arguments) {
        command += " '";
        for (char c : argument) command += c == '\'' ? std::string("'\\''") : std::string(1, c);
        command += "'";
    }
    ProgramRun run;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return run;
    char chunk[256];
    while (std::fgets(chunk, sizeof chunk, pipe)) run.output += chunk;
    const int status = pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

}  // namespace hmitest
