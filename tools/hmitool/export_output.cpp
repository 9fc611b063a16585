#include "export_output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "reg_file.h"

namespace hmitool {
namespace {

bool WriteStream(std::FILE* out, const std::string& bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size() && std::fflush(out) == 0 && !std::ferror(out);
}

}  // namespace

bool WriteExport(const std::string& path, const std::string& bytes, std::string* error) {
    errno = 0;
    if (path == "-") {
        if (WriteStream(stdout, bytes)) return true;
        *error = std::string("cannot write the standard output: ") + (errno ? std::strerror(errno) : "write failed");
        return false;
    }
    std::error_code code;
    const std::filesystem::file_status status = std::filesystem::status(std::filesystem::u8path(path), code);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        std::FILE* const out = std::fopen(path.c_str(), "wb");
        const bool written = out && WriteStream(out, bytes);
        const int reason = errno;
        const bool closed = out && std::fclose(out) == 0;
        if (written && closed) return true;
        *error = "cannot write '" + path + "': " + (reason ? std::strerror(reason) : "write failed");
        return false;
    }
    return WriteFileReplacing(path, bytes, error);
}

}  // namespace hmitool
