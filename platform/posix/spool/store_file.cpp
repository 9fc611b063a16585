#include "store_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "unicode.h"

namespace hmispool {

namespace {

bool EndsWith(std::string_view s, std::string_view suffix) {
    return s.size() >= suffix.size() && s.substr(s.size() - suffix.size()) == suffix;
}

const char* NonEmptyEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value && *value ? value : nullptr;
}

bool StoreDirectory(std::string& directory, std::string& reason) {
    if (const char* store = NonEmptyEnvironment("HMI_PRINTER_STORE")) {
        directory = store;
    } else if (const char* data = NonEmptyEnvironment("XDG_DATA_HOME")) {
        directory = std::string(data) + "/xrvhmi/printers";
    } else if (const char* home = NonEmptyEnvironment("HOME")) {
        directory = std::string(home) + "/.local/share/xrvhmi/printers";
    } else {
        reason = "no printer store directory: HMI_PRINTER_STORE, XDG_DATA_HOME and HOME are all unset";
        return false;
    }
    return true;
}

bool WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

}  // namespace

bool ResolveStorePath(std::u16string_view name, std::string& path, std::string& reason) {
    std::string utf8;
    if (name.empty() || !AppendUtf8FromUtf16(name, utf8) || utf8.find('\0') != std::string::npos) {
        reason = "invalid printer name";
        return false;
    }
    if (utf8.find('/') != std::string::npos || EndsWith(utf8, ".reg")) {
        path = std::move(utf8);
        return true;
    }
    if (!StoreDirectory(path, reason)) return false;
    path += '/';
    path += utf8;
    path += ".reg";
    return true;
}

bool ReadStoreFile(const std::string& path, std::string& bytes, std::string& reason) {
    // Non-blocking, so that opening a FIFO without a writer returns and is refused below.
    int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        reason = std::strerror(errno);
        return false;
    }
    struct Closer {
        int fd;
        ~Closer() { ::close(fd); }
    } closer{fd};
    struct stat info;
    if (::fstat(fd, &info) != 0) {
        reason = std::strerror(errno);
        return false;
    }
    if (!S_ISREG(info.st_mode)) {
        reason = "not a regular file";
        return false;
    }
    static const std::string kTooLarge = "larger than " + std::to_string(kMaxStoreFileBytes >> 20) +
                                         " MiB, the limit of a store file";
    if (static_cast<uint64_t>(info.st_size) > kMaxStoreFileBytes) {
        reason = kTooLarge;
        return false;
    }
    bytes.clear();
    bytes.reserve(static_cast<size_t>(info.st_size));
    char buffer[65536];
    for (;;) {
        ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n == 0) return true;
        if (n < 0) {
            if (errno == EINTR) continue;
            reason = std::strerror(errno);
            return false;
        }
        if (bytes.size() + static_cast<size_t>(n) > kMaxStoreFileBytes) {  // it grew while read
            reason = kTooLarge;
            return false;
        }
        bytes.append(buffer, static_cast<size_t>(n));
    }
}

bool ReplaceFileAtomically(const std::string& path, std::string_view bytes) {
    std::string temporary = path + ".XXXXXX";
    int fd = ::mkstemp(temporary.data());
    if (fd < 0) return false;
    struct stat existing;
    bool ok = (::stat(path.c_str(), &existing) != 0 || ::fchmod(fd, existing.st_mode & 07777) == 0) &&
              WriteAll(fd, bytes) && ::fsync(fd) == 0;
    if (::close(fd) != 0) ok = false;
    if (ok && std::rename(temporary.c_str(), path.c_str()) == 0) return true;
    int saved = errno;
    std::remove(temporary.c_str());
    errno = saved;
    return false;
}

}  // namespace hmispool
