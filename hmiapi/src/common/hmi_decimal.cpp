#include "common/hmi_decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

// Significant digits kept; a non-zero digit among those dropped is kept as one more "1", so that the
// double still rounds the way the whole text would.
constexpr int kKeptDigits = 40;
constexpr int64_t kExponentLimit = 100000;  // far beyond every double, still a short text

bool IsDigit(WCHAR c) { return c >= u'0' && c <= u'9'; }
bool IsSpace(WCHAR c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

// The mantissa as "0.<digits>" scaled by 10^exponent, written as text that from_chars reads.
class DecimalText {
public:
    void AddDigit(WCHAR c, bool beforePoint) {
        if (count == 0 && c == u'0') {
            if (!beforePoint) --exponent;
            return;
        }
        if (beforePoint) ++exponent;
        if (count < kKeptDigits) {
            digits[count++] = static_cast<char>(c);
        } else if (c != u'0') {
            dropped = true;
        }
    }
    void Scale(int64_t power) { exponent += power; }
    bool IsZero() const { return count == 0; }

    // The magnitude, infinity above the double range and zero below it.
    double Value() {
        if (dropped) digits[count++] = '1';
        char text[2 + kKeptDigits + 1 + 24] = "0.";
        char* p = text + 2;
        for (int i = 0; i < count; ++i) *p++ = digits[i];
        *p++ = 'e';
        const int64_t clamped = exponent < -kExponentLimit ? -kExponentLimit
                                : exponent > kExponentLimit ? kExponentLimit
                                                            : exponent;
        p = std::to_chars(p, text + sizeof text, clamped).ptr;
        double value = 0.0;
        if (std::from_chars(text, p, value).ec == std::errc::result_out_of_range) {
            return clamped > 0 ? std::numeric_limits<double>::infinity() : 0.0;
        }
        return value;
    }

private:
    char digits[kKeptDigits + 1] = {};
    int count = 0;
    int64_t exponent = 0;
    bool dropped = false;
};

// The exponent's value, saturated well beyond every double.
int64_t ReadExponent(const WCHAR*& p) {
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+') ++p;
    int64_t value = 0;
    for (; IsDigit(*p); ++p) value = std::min<int64_t>(value * 10 + (*p - u'0'), 4 * kExponentLimit);
    return negative ? -value : value;
}

// Rounds to the nearest float as the hardware does, with the values that round beyond the largest
// float (from FLT_MAX plus half its last place on) made infinite explicitly.
float Narrow(double value) {
    constexpr double kRoundsToInfinity = 0x1.ffffffp127;
    if (value >= kRoundsToInfinity) return std::numeric_limits<float>::infinity();
    if (value <= -kRoundsToInfinity) return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

}  // namespace

float HMIDecimalToFloat(const WCHAR* text) noexcept {
    if (!text) return 0.0f;
    const WCHAR* p = text;
    while (IsSpace(*p)) ++p;
    const bool negative = *p == u'-';
    if (*p == u'-' || *p == u'+') ++p;
    DecimalText decimal;
    bool digits = false;
    for (; IsDigit(*p); ++p, digits = true) decimal.AddDigit(*p, true);
    if (*p == u'.') {
        for (++p; IsDigit(*p); ++p, digits = true) decimal.AddDigit(*p, false);
    }
    if (!digits) return 0.0f;
    if ((*p == u'e' || *p == u'E') && (IsDigit(p[1]) || ((p[1] == u'-' || p[1] == u'+') && IsDigit(p[2])))) {
        ++p;
        decimal.Scale(ReadExponent(p));
    }
    const double magnitude = decimal.IsZero() ? 0.0 : decimal.Value();
    return Narrow(negative ? -magnitude : magnitude);
}
