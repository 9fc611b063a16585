#include "common/hmi_map.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fault_injection.h"

namespace {

TEST(HMIXMLMap, FirstEntryForAKeyStaysAndFailedInsertsChangeNothing) {
    int first = 1, second = 2;
    const std::basic_string<WCHAR> sameKey(HMI_W("glossy"));  // equal text at another address
    HMIXMLMap<const WCHAR*, int*, 0, HMIStrLess> map;
    EXPECT_TRUE(map.Insert(HMI_W("glossy"), &first) && map.Insert(sameKey.c_str(), &second));
    EXPECT_EQ(map.Find(sameKey.c_str()), &first);
    EXPECT_EQ(map.Find(HMI_W("Glossy")), nullptr);

    hmitest::ArmAllocationFailure(1);
    const bool inserted = map.Insert(HMI_W("matte"), &second);
    EXPECT_TRUE(hmitest::DisarmAllocationFailure() && !inserted);
    EXPECT_TRUE(map.size() == 1u && map.Find(HMI_W("matte")) == nullptr);
}

}  // namespace
