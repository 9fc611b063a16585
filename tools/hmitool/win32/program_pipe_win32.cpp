#include <io.h>
#include <stdio.h>
#include <stdlib.h>

#include "program_pipe.h"
#include "text.h"

namespace hmitool {

std::string FindOnPath(const std::string& program) {
    const wchar_t* variable = _wgetenv(L"PATH");
    const std::string directories = variable ? Narrow(reinterpret_cast<const WCHAR*>(variable)) : "";
    for (size_t start = 0; start <= directories.size();) {
        size_t end = directories.find(';', start);
        if (end == std::string::npos) end = directories.size();
        const std::string directory = directories.substr(start, end - start);
        const std::string candidate = (directory.empty() ? "." : directory) + "\\" + program + ".exe";
        if (_waccess(reinterpret_cast<const wchar_t*>(Widen(candidate).c_str()), 0) == 0) return candidate;
        start = end + 1;
    }
    return "";
}

int RunWithInput(const std::string& path, const std::vector<std::string>& arguments, const std::string& input) {
    // cmd /c strips the first and the last quote of a command that starts with one: an extra pair keeps
    // the quotes around each argument.
    std::string command = "\"\"" + path + "\"";
    for (const std::string& argument : arguments) command += " \"" + argument + "\"";
    FILE* pipe = _wpopen(reinterpret_cast<const wchar_t*>(Widen(command + "\"").c_str()), L"wb");
    if (!pipe) return -1;
    fwrite(input.data(), 1, input.size(), pipe);
    return _pclose(pipe);
}

}  // namespace hmitool
