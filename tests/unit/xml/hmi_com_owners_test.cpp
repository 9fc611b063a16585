#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(HMIBSTR, HoldsOneStringWithAVariantViewOfIt) {
    HMIBSTR holder;
    EXPECT_EQ(holder.str, nullptr);
    EXPECT_EQ(holder.var.vt, VT_BSTR);
    EXPECT_EQ(holder.var.bstrVal, nullptr);
    const WCHAR text[] = HMI_W("XPath");
    for (const WCHAR* value : {text, HMI_W(""), static_cast<const WCHAR*>(nullptr)}) {
        ASSERT_TRUE(holder.assign(value));
        EXPECT_EQ(holder.var.bstrVal, holder.str);
        EXPECT_EQ(holder.str != nullptr, value != nullptr) << "an empty BSTR is still a string";
        if (value) {
            EXPECT_EQ(std::basic_string<WCHAR>(holder.str), value);
        }
    }
    ASSERT_TRUE(holder.assign(text));
    BSTR* slot = holder.put();
    EXPECT_EQ(slot, &holder.str);
    EXPECT_EQ(holder.str, nullptr);
    EXPECT_EQ(holder.var.bstrVal, nullptr);
    *slot = SysAllocString(HMI_W("received"));  // the holder frees it
}

// Counts what an owner does to the interface it holds.
struct CountingInterface {
    ULONG AddRef() { return ++addRefs; }
    ULONG Release() { return ++releases; }
    ULONG addRefs = 0;
    ULONG releases = 0;
};

TEST(HMIComPtr, OwnsExactlyTheReferenceItWasGiven) {
    CountingInterface first, second, third;
    CountingInterface* detached = nullptr;
    {
        HMIComPtr<CountingInterface> owner(&first);
        EXPECT_TRUE(owner);
        CountingInterface** slot = owner.put();
        EXPECT_EQ(first.releases, 1u) << "put releases the held reference";
        EXPECT_FALSE(owner);
        *slot = &second;
        EXPECT_EQ(owner.get(), &second);
        HMIComPtr<CountingInterface> other(&third);
        detached = other.detach();
        EXPECT_FALSE(other);
    }
    EXPECT_EQ(first.releases, 1u);
    EXPECT_EQ(second.releases, 1u);
    EXPECT_EQ(third.releases, 0u);
    EXPECT_EQ(detached, &third);
    EXPECT_EQ(first.addRefs + second.addRefs + third.addRefs, 0u);
}

}  // namespace
