#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "program_pipe.h"

namespace hmitool {
namespace {

std::string ShellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

std::string FindOnPath(const std::string& program) {
    const char* variable = std::getenv("PATH");
    const std::string directories = variable ? variable : "";
    for (size_t start = 0; start <= directories.size();) {
        size_t end = directories.find(':', start);
        if (end == std::string::npos) end = directories.size();
        const std::string directory = directories.substr(start, end - start);
        const std::string candidate = (directory.empty() ? "." : directory) + "/" + program;
        if (access(candidate.c_str(), X_OK) == 0) return candidate;
        start = end + 1;
    }
    return "";
}

int RunWithInput(const std::string& path, const std::vector<std::string>& arguments, const std::string& input) {
    std::string command = ShellQuoted(path);
    for (const std::string& argument : arguments) command += " " + ShellQuoted(argument);
    // Writing into a pipe the program has closed then fails instead of ending the tool; its status says why.
    std::signal(SIGPIPE, SIG_IGN);
    FILE* pipe = popen(command.c_str(), "w");
    if (!pipe) return -1;
    std::fwrite(input.data(), 1, input.size(), pipe);
    const int status = pclose(pipe);
    if (status == -1) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace hmitool
