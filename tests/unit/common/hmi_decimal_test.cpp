// The format version's conversion: the same decimal prefix, rounding and range on every platform.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "common/hmi_decimal.h"

namespace {

using WString = std::basic_string<WCHAR>;

uint32_t Bits(float value) {
    uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

TEST(Decimal, LongestDecimalPrefixAsFloat) {
    const float inf = std::numeric_limits<float>::infinity();
    const struct { WString text; float expected; } cases[] = {
        {HMI_W("2.10"), 2.10f}, {HMI_W(" \t\r\n-2.25e2x"), -225.0f}, {HMI_W("+.5"), 0.5f}, {HMI_W("7."), 7.0f},
        {HMI_W("1,5"), 1.0f}, {HMI_W("1e"), 1.0f}, {HMI_W("1e+"), 1.0f}, {HMI_W("1E-1"), 0.1f},
        {HMI_W("2.5D-1"), 2.5f}, {HMI_W("1d2"), 1.0f}, {HMI_W("0x10"), 0.0f}, {HMI_W("inf"), 0.0f},
        {HMI_W("nan"), 0.0f}, {HMI_W("-."), 0.0f}, {HMI_W(""), 0.0f}, {HMI_W("\u30001.5"), 0.0f},
        {HMI_W("3.4028235e38"), 3.4028235e38f}, {HMI_W("3.4028236e38"), inf}, {HMI_W("-1e400"), -inf},
        {HMI_W("1e-50"), 0.0f}, {HMI_W("1e99999999999999999999"), inf},
        // Far more digits than the 40 kept.
        {HMI_W("0.") + WString(300, HMI_W('0')) + HMI_W("1e301"), 1.0f},
        {HMI_W("1") + WString(60, HMI_W('0')) + HMI_W("e-60"), 1.0f},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Bits(HMIDecimalToFloat(c.text.c_str())), Bits(c.expected)) << "case #" << (&c - cases);
    }
    EXPECT_EQ(Bits(HMIDecimalToFloat(HMI_W("-0.0"))), Bits(-0.0f));
    EXPECT_EQ(Bits(HMIDecimalToFloat(nullptr)), Bits(0.0f));
}

}  // namespace
