// The wide command line, converted to UTF-8 for the tool, and a console that shows UTF-8 output.
#include <windows.h>

#include "command.h"
#include "text.h"

int wmain(int argc, wchar_t** argv) {
    SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> args;
    for (int i = 1; i < argc; ++i) args.push_back(hmitool::Narrow(reinterpret_cast<const WCHAR*>(argv[i])));
    return hmitool::Main(args);
}
