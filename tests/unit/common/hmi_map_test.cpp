#include "common/hmi_map.h"
#include "common/hmi_small_map.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

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

// The same contract over a sorted vector: first entry stays, keys in order, a failed insert changes nothing.
TEST(HMIXMLSmallMap, FirstEntryForAKeyStaysKeysInOrderAndFailedInsertsChangeNothing) {
    int values[5] = {};
    HMIXMLSmallMap<int32_t, int*> map;
    for (int32_t key : {3, -1, 7, 3, 9}) EXPECT_TRUE(map.Insert(key, &values[map.size()]));
    EXPECT_EQ(map.size(), 4u);
    EXPECT_TRUE(map.Find(3) == &values[0] && map.Find(-1) == &values[1] && map.Find(7) == &values[2]);
    EXPECT_TRUE(map.Find(0) == nullptr && map.Find(8) == nullptr && map.Find(INT32_MIN) == nullptr);
    std::vector<int32_t> keys;
    for (const auto& entry : map) keys.push_back(entry.first);
    EXPECT_EQ(keys, (std::vector<int32_t>{-1, 3, 7, 9}));

    hmitest::ArmAllocationFailure(1);  // four entries fill the vector: the fifth needs a new one
    const bool inserted = map.Insert(5, &values[4]);
    EXPECT_TRUE(hmitest::DisarmAllocationFailure() && !inserted);
    EXPECT_TRUE(map.size() == 4u && map.Find(5) == nullptr && map.Find(9) == &values[3]);
}

}  // namespace
