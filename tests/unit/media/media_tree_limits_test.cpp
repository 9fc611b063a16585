// Deep documents and allocation failure while a tree is built.
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <new>

#include "media/media_detail.h"
#include "media_test_support.h"
#include "support/fault_injection.h"

namespace {

using mediatest::WString;

WString Nested(int levels, const WCHAR* leaf) {
    return levels ? HMI_W("<x>") + Nested(levels - 1, leaf) + HMI_W("</x>") : WString(leaf);
}

int DepthBelow(const HMIXMLNode* node) {
    int depth = 0;
    for (; !node->Children().empty(); node = node->Children()[0]) ++depth;
    return depth;
}

class MediaTreeLimitsTest : public mediatest::MediaDocumentTest {};

// MSXML 6.0 and the Linux DOM refuse documents nested deeper than 256 elements, so a medium at the
// top has at most 255 levels below it. Wine's MSXML loads deeper ones: the tree refuses them itself.
TEST_F(MediaTreeLimitsTest, DeepDocumentsBuildUpToTheLimitAndNoFurther) {
    auto detail = Build(WString(HMI_W("<medium>")) + Nested(254, HMI_W("<printcolormode type=\"all\"/>")) +
                        HMI_W("</medium>"));
    ASSERT_TRUE(detail);
    EXPECT_EQ(DepthBelow(detail.get()), 255);
    if (Load(WString(HMI_W("<medium>")) + Nested(300, HMI_W("")) + HMI_W("</medium>"))) {
        HMIXMLMediaDetail deep;
        EXPECT_FALSE(deep.ParseDocument(document.get()));
    }
    // Below a chain of 250 ancestors, an element may have 6 levels below it but not 7.
    std::deque<HMIXMLNode> chain;
    for (int depth = 0; depth < 250; ++depth) chain.emplace_back(chain.empty() ? nullptr : &chain.back());
    mediatest::RecordingObserver observer;
    HMIXMLRejectionScope scope(&observer);
    auto six = ParseElement(Nested(7, HMI_W("t")), &chain.back());
    ASSERT_TRUE(six);
    EXPECT_EQ(DepthBelow(six.get()), 6);
    EXPECT_FALSE(ParseElement(Nested(8, HMI_W("t")), &chain.back()));
    ASSERT_EQ(observer.rejections.size(), 1u);
    EXPECT_NE(observer.rejections[0].find(": nested more than 256 levels deep"), std::string::npos);
}

// Allocation n fails for n = 1, 2, ... until a build runs without failure. Every build ends with
// false, or with the complete tree; nothing survives it. Runs on the library's objects, whose
// allocations this program's operator new counts.
TEST_F(MediaTreeLimitsTest, AllocationFailureAtEveryStepOfABuild) {
    ASSERT_TRUE(Load(mediatest::MediumDocument(mediatest::FullMediumBody())));
    mediatest::RecordingObserver observer;
    for (HMIXMLRejectionObserver* watching : {static_cast<HMIXMLRejectionObserver*>(nullptr),
                                              static_cast<HMIXMLRejectionObserver*>(&observer)}) {
        SCOPED_TRACE(watching ? "with observer" : "without observer");
        std::unique_ptr<HMIXMLMediaDetail> detail;
        bool built = false;
        long liveBefore = 0;
        const std::function<void()> build = [&] {
            detail.reset(new (std::nothrow) HMIXMLMediaDetail());
            built = detail && detail->SetId(HMI_W("M")) && detail->ParseDocument(document.get(), watching);
        };
        const std::function<void(bool)> check = [&](bool injected) {
            EXPECT_TRUE(built || injected);
            if (built) mediatest::ExpectFullTree(*detail, HMI_W("M"));
            detail.reset();
            observer.rejections.clear();
            observer.rejections.shrink_to_fit();
            EXPECT_EQ(hmitest::LiveAllocations(), liveBefore);
        };
        // A first build lets the DOM make whatever it keeps for the document's lifetime.
        build();
        ASSERT_TRUE(built);
        detail.reset();
        liveBefore = hmitest::LiveAllocations();
        EXPECT_GT(hmitest::ForEachAllocationFailure(build, check), 100);
    }
}

}  // namespace
