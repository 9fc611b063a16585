#include <windows.h>

#include "system_error.h"

namespace hmitool {

std::string SystemErrorText(DWORD code) {
    WCHAR message[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, message, 512, nullptr);
    std::string text = "error " + std::to_string(code) + ": " + Narrow(message);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

}  // namespace hmitool
