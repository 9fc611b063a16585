#include "posix/crt/crt.h"

#include <climits>

namespace {

// Writes what fits into the buffer and counts everything.
class WideSink {
public:
    WideSink(WCHAR* buffer, size_t capacity) : buffer_(buffer), capacity_(capacity) {}

    void Put(WCHAR c) {
        if (length_ < capacity_) buffer_[length_] = c;
        ++length_;
    }
    void Repeat(WCHAR c, size_t times) {
        for (; times > 0 && length_ < capacity_; --times) buffer_[length_++] = c;
        length_ += times;
    }
    size_t Length() const { return length_; }

private:
    WCHAR* buffer_;
    size_t capacity_;
    size_t length_ = 0;
};

struct FieldFormat {
    bool leftAlign = false;
    bool zeroPad = false;
    size_t width = 0;
};

// Emits prefix (a sign) and body padded to the field width; zero padding goes between them.
void PutField(WideSink& out, const FieldFormat& field, const WCHAR* prefix, size_t prefixLength, const WCHAR* body,
              size_t bodyLength) {
    size_t used = prefixLength + bodyLength;
    size_t padding = field.width > used ? field.width - used : 0;
    if (!field.leftAlign && !field.zeroPad) out.Repeat(u' ', padding);
    for (size_t i = 0; i < prefixLength; ++i) out.Put(prefix[i]);
    if (!field.leftAlign && field.zeroPad) out.Repeat(u'0', padding);
    for (size_t i = 0; i < bodyLength; ++i) out.Put(body[i]);
    if (field.leftAlign) out.Repeat(u' ', padding);
}

void PutNumber(WideSink& out, const FieldFormat& field, bool negative, uint32_t magnitude, unsigned base,
               bool upper) {
    const char* digits = upper ? "0123456789ABCDEF" : "0123456789abcdef";
    WCHAR text[32];
    size_t start = sizeof text / sizeof text[0];
    do {
        text[--start] = static_cast<WCHAR>(digits[magnitude % base]);
        magnitude /= base;
    } while (magnitude != 0);
    const WCHAR minus = u'-';
    PutField(out, field, &minus, negative ? 1 : 0, text + start, sizeof text / sizeof text[0] - start);
}

size_t WideLength(const WCHAR* s) {
    size_t n = 0;
    while (s[n]) ++n;
    return n;
}

// Formats into out; false for a conversion outside the supported set.
bool FormatInto(WideSink& out, const WCHAR* format, va_list args) {
    static const WCHAR kNull[] = u"(null)";
    for (const WCHAR* p = format; *p; ++p) {
        if (*p != u'%') {
            out.Put(*p);
            continue;
        }
        FieldFormat field;
        for (++p; *p == u'-' || *p == u'0'; ++p) {
            if (*p == u'-') {
                field.leftAlign = true;
            } else {
                field.zeroPad = true;
            }
        }
        for (; *p >= u'0' && *p <= u'9'; ++p) {
            field.width = field.width * 10 + static_cast<size_t>(*p - u'0');
            if (field.width > static_cast<size_t>(INT_MAX)) return false;
        }
        switch (*p) {
            case u'%':
                out.Put(u'%');
                break;
            case u'c': {
                const WCHAR c = static_cast<WCHAR>(va_arg(args, int));
                PutField(out, field, nullptr, 0, &c, 1);
                break;
            }
            case u's': {
                const WCHAR* s = va_arg(args, const WCHAR*);
                if (!s) s = kNull;
                PutField(out, field, nullptr, 0, s, WideLength(s));
                break;
            }
            case u'd':
            case u'i': {
                const int32_t value = va_arg(args, int32_t);
                const uint32_t magnitude = value < 0 ? 0u - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
                PutNumber(out, field, value < 0, magnitude, 10, false);
                break;
            }
            case u'u':
                PutNumber(out, field, false, va_arg(args, uint32_t), 10, false);
                break;
            case u'x':
            case u'X':
                PutNumber(out, field, false, va_arg(args, uint32_t), 16, *p == u'X');
                break;
            default:
                return false;
        }
        if (out.Length() > static_cast<size_t>(INT_MAX)) return false;
    }
    return out.Length() <= static_cast<size_t>(INT_MAX);
}

}  // namespace

int _vscwprintf(const WCHAR* format, va_list args) {
    if (!format) return -1;
    WideSink out(nullptr, 0);
    return FormatInto(out, format, args) ? static_cast<int>(out.Length()) : -1;
}

int _vsnwprintf(WCHAR* buffer, size_t count, const WCHAR* format, va_list args) {
    if (!format || (!buffer && count != 0)) return -1;
    WideSink out(buffer, count);
    if (!FormatInto(out, format, args)) return -1;
    // A null buffer of no units asks for the length.
    if (!buffer) return static_cast<int>(out.Length());
    if (out.Length() > count) return -1;
    if (out.Length() < count) buffer[out.Length()] = u'\0';
    return static_cast<int>(out.Length());
}
