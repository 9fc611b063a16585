#include "posix/msxml/file_text.h"

#include <fcntl.h>
#include <iconv.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "posix/com/allocation.h"

namespace {

// The whole regular file, zero-terminated; null with *reason when it cannot be read.
char* ReadWhole(const char* path, size_t* length, const char** reason) {
    const int fd = ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat info;
    if (fd < 0 || ::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        *reason = fd < 0 ? "the file cannot be opened" : "not a regular file";
        if (fd >= 0) ::close(fd);
        return nullptr;
    }
    const size_t size = static_cast<size_t>(info.st_size);
    char* bytes = size <= kMaxDocumentFileBytes ? static_cast<char*>(HMIComAlloc(size + 1)) : nullptr;
    size_t done = 0;
    while (bytes && done < size) {
        const ssize_t n = ::read(fd, bytes + done, size - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        done += static_cast<size_t>(n);
    }
    ::close(fd);
    if (!bytes || done != size) {
        *reason = !bytes ? (size > kMaxDocumentFileBytes ? "the file is too large" : "out of memory") : "read failed";
        HMIComFree(bytes);
        return nullptr;
    }
    bytes[size] = 0;
    *length = size;
    return bytes;
}

// The encoding named by the byte-order mark or, in a file without one, by the XML declaration; null
// for UTF-8. *skip receives the length of a UTF-8 byte-order mark.
const char* EncodingOf(std::string_view text, size_t* skip, char (&declared)[64]) {
    *skip = 0;
    if (text.substr(0, 3) == "\xEF\xBB\xBF") return *skip = 3, nullptr;
    if (text.substr(0, 2) == "\xFF\xFE" || text.substr(0, 4) == std::string_view("<\0?\0", 4)) return "UTF-16LE";
    if (text.substr(0, 2) == "\xFE\xFF" || text.substr(0, 4) == std::string_view("\0<\0?", 4)) return "UTF-16BE";
    if (text.substr(0, 5) != "<?xml") return nullptr;
    const std::string_view declaration = text.substr(0, text.find("?>"));
    size_t at = declaration.find("encoding");
    if (at == std::string_view::npos) return nullptr;
    at = declaration.find_first_of("\"'", at);
    const size_t end = at == std::string_view::npos ? at : declaration.find(declaration[at], at + 1);
    if (end == std::string_view::npos || end - at - 1 >= sizeof declared) return nullptr;
    std::memcpy(declared, declaration.data() + at + 1, end - at - 1);
    declared[end - at - 1] = 0;
    return strcasecmp(declared, "UTF-8") == 0 ? nullptr : declared;
}

// The bytes decoded from encoding into UTF-8, zero-terminated; null with *reason on failure.
char* Decode(const char* bytes, size_t size, const char* encoding, size_t* length, const char** reason) {
    iconv_t converter = iconv_open("UTF-8", encoding);
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        *reason = "unsupported encoding";
        return nullptr;
    }
    const size_t room = size * 3 + 4;  // no character takes more than three times its encoded bytes
    char* out = static_cast<char*>(HMIComAlloc(room));
    char* in = const_cast<char*>(bytes);
    size_t inLeft = size;
    char* next = out;
    size_t outLeft = room - 1;
    const bool decoded = out && iconv(converter, &in, &inLeft, &next, &outLeft) != static_cast<size_t>(-1);
    iconv_close(converter);
    if (!decoded) {
        *reason = out ? "the text does not decode in its encoding" : "out of memory";
        HMIComFree(out);
        return nullptr;
    }
    *next = 0;
    *length = static_cast<size_t>(next - out);
    if (*length >= 3 && std::memcmp(out, "\xEF\xBB\xBF", 3) == 0) {  // the byte-order mark, decoded
        std::memmove(out, out + 3, *length - 2);
        *length -= 3;
    }
    return out;
}

// Whether libxml2 would take the start of a text for UCS-4, UTF-16 or EBCDIC and switch to it: never
// UTF-8 XML (a NUL, or bytes that cannot start UTF-8), so such a text is refused before parsing.
bool LooksLikeAnotherEncoding(std::string_view text) {
    const std::string_view start = text.substr(0, 4);
    return start.find('\0') != std::string_view::npos || start == "\x4C\x6F\xA7\x94" ||
           start.substr(0, 2) == "\xFE\xFF" || start.substr(0, 2) == "\xFF\xFE";
}

}  // namespace

char* HMIReadFileAsUtf8(const char* path, size_t* length, const char** reason) {
    size_t size = 0;
    char* bytes = ReadWhole(path, &size, reason);
    if (!bytes) return nullptr;
    size_t skip = 0;
    char declared[64];
    const char* encoding = EncodingOf(std::string_view(bytes, size), &skip, declared);
    if (!encoding) {
        std::memmove(bytes, bytes + skip, size - skip + 1);
        *length = size - skip;
        if (!LooksLikeAnotherEncoding(std::string_view(bytes, *length))) return bytes;
        *reason = "the text is not UTF-8 and names no encoding";
        HMIComFree(bytes);
        return nullptr;
    }
    char* utf8 = Decode(bytes, size, encoding, length, reason);
    HMIComFree(bytes);
    return utf8;
}
