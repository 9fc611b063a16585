#include "common/hmi_map.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fault_injection.h"

namespace {

using StringMap = HMIXMLMap<const WCHAR*, int*, 0, HMIStrLess>;

TEST(HMIXMLMap, FirstEntryForAKeyStaysAndFailedInsertsChangeNothing) {
    int first = 1, second = 2;
    const std::basic_string<WCHAR> sameKey(HMI_W("glossy"));  // equal text at another address
    StringMap map;
    EXPECT_TRUE(map.Insert(HMI_W("glossy"), &first));
    EXPECT_TRUE(map.Insert(sameKey.c_str(), &second));
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(map.Find(sameKey.c_str()), &first);
    EXPECT_EQ(map.Find(HMI_W("Glossy")), nullptr);

    hmitest::ArmAllocationFailure(1);
    const bool inserted = map.Insert(HMI_W("matte"), &second);
    EXPECT_TRUE(hmitest::DisarmAllocationFailure());
    EXPECT_FALSE(inserted);
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(map.Find(HMI_W("matte")), nullptr);
}

TEST(HMIStrLess, IsAStrictOrderByLstrcmpW) {
    const WCHAR* const words[] = {HMI_W("plain"), HMI_W("Plain"), HMI_W("ab"), HMI_W("a"), HMI_W("")};
    const HMIStrLess less;
    for (const WCHAR* a : words) {
        for (const WCHAR* b : words) {
            EXPECT_EQ(less(a, b), lstrcmpW(a, b) < 0);
            EXPECT_FALSE(less(a, b) && less(b, a));
        }
    }
}

}  // namespace
