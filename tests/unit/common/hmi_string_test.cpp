#include "common/hmi_string.h"

#include <gtest/gtest.h>

#include "support/fault_injection.h"

namespace {

using WideString = std::basic_string<WCHAR>;

WideString Take(WCHAR* s) {
    HMIHeapString owner(s);
    return owner ? WideString(owner.get()) : WideString(HMI_W("<null>"));
}

TEST(HMIStrDup, CopiesWithTerminatorAndRefusesEmpty) {
    const WCHAR text[] = HMI_W("Photo Paper");
    EXPECT_EQ(Take(HMIStrDup(text)), text);
    EXPECT_TRUE(HMIStrDup(HMI_W("")) == nullptr && HMIStrDup(nullptr) == nullptr);
}

// The conversions themselves are pinned down by the CRT conformance tests.
TEST(HMIFormatString, GivesTheLengthAndAHeapStringOrMinusOneAndNoString) {
    WCHAR poison = 0;
    WCHAR* out[3] = {&poison, &poison, &poison};
    EXPECT_EQ(HMIFormatString(&out[0], HMI_W("")), -1);
    EXPECT_EQ(HMIFormatString(&out[1], HMI_W("%s"), HMI_W("")), -1);
    EXPECT_EQ(HMIFormatString(&out[2], nullptr), -1);
    for (WCHAR* o : out) EXPECT_EQ(o, nullptr);

    long before = 0;
    int n = 0;
    const long failures = hmitest::ForEachAllocationFailure(
        [&] { before = hmitest::LiveAllocations(); n = HMIFormatString(&out[0], HMI_W("%s\\%08X"), HMI_W("M"), 26u); },
        [&](bool injected) {
            EXPECT_EQ(n, injected ? -1 : 10);
            EXPECT_EQ(hmitest::LiveAllocations(), before + (injected ? 0 : 1)) << "nothing leaks";
            EXPECT_EQ(Take(out[0]), injected ? HMI_W("<null>") : HMI_W("M\\0000001A"));
        });
    EXPECT_EQ(failures, 1);
}

TEST(HMIBoundedCopy, CopiesWhatFitsAndOnlyClearsTheFirstUnitOtherwise) {
    const WCHAR unterminated[3] = {u'x', u'y', u'z'};  // nothing may be read past these three units
    // field: all four units of the field afterwards
    const struct { const WCHAR* source; size_t capacity; bool copied; const WCHAR* field; } cases[] = {
        {HMI_W("abc"), 4, true, HMI_W("abc\0")},    {HMI_W(""), 4, true, HMI_W("\0###")},
        {HMI_W("abcd"), 4, false, HMI_W("\0###")},  {unterminated, 3, false, HMI_W("\0###")},
        {nullptr, 4, false, HMI_W("\0###")},        {HMI_W(""), 0, false, HMI_W("####")},
    };
    for (const auto& c : cases) {
        WCHAR field[4] = {u'#', u'#', u'#', u'#'};
        EXPECT_EQ(HMIBoundedCopy(field, c.capacity, c.source), c.copied) << "case #" << (&c - cases);
        EXPECT_EQ(WideString(field, 4), WideString(c.field, 4)) << "case #" << (&c - cases);
    }
}

}  // namespace
