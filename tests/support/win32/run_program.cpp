#include "support/run_program.h"

#include <windows.h>

#include <cstdio>

namespace hmitest {
namespace {

std::wstring Wide(const std::string& utf8) {
    std::wstring out(utf8.size(), L'\0');
    out.resize(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), &out[0],
                                   static_cast<int>(out.size())));
    return out;
}

}  // namespace

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments) {
    WCHAR self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring path(self);
    path = path.substr(0, path.find_last_of(L"\\/") + 1) + Wide(program);
    // cmd.exe takes the whole line in quotes; each argument in its own (none of ours holds a quote).
    std::wstring command = L"\"\"" + path + L"\"";
    for (const std::string& argument : arguments) command += L" \"" + Wide(argument) + L"\"";
    ProgramRun run;
    FILE* pipe = _wpopen((command + L" 2>&1\"").c_str(), L"r");
    if (!pipe) return run;
    char chunk[256];
    size_t read = 0;
    while ((read = std::fread(chunk, 1, sizeof chunk, pipe)) > 0) run.output.append(chunk, read);
    run.status = _pclose(pipe);
    return run;
}

}  // namespace hmitest
