// Deep documents and allocation failure while a tree is built.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <vector>

#include "media/media_detail.h"
#include "media_test_support.h"
#include "media_tree_documents.h"
#include "support/fault_injection.h"
#include "xml/hmi_bstr.h"

namespace {

using mediatest::WString;

WString Nested(int levels, const WCHAR* leaf) {
    WString text;
    for (int i = 0; i < levels; ++i) text += HMI_W("<x>");
    text += leaf;
    for (int i = 0; i < levels; ++i) text += HMI_W("</x>");
    return text;
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
}

TEST_F(MediaTreeLimitsTest, ParseRefusesElementsBeyond256LevelsBelowTheRoot) {
    // Depths 0 to 249: the parsed element sits at 250, its deepest descendant at 250 + levels.
    std::vector<std::unique_ptr<HMIXMLNode>> chain;
    for (int depth = 0; depth < 250; ++depth) {
        chain.push_back(std::make_unique<HMIXMLNode>(chain.empty() ? nullptr : chain.back().get()));
    }
    for (int levels : {6, 7}) {
        SCOPED_TRACE(levels);
        ASSERT_TRUE(Load(Nested(levels + 1, HMI_W("t"))));
        HMIComPtr<IXMLDOMNode> root;
        HMIBSTR query;
        ASSERT_TRUE(query.assign(HMI_W("/x")));
        ASSERT_EQ(document->selectSingleNode(query.str, root.put()), S_OK);
        mediatest::RecordingObserver observer;
        HMIXMLRejectionScope scope(&observer);
        HMIXMLNode node(chain.back().get());
        const bool parsed = node.Parse(root.get(), nullptr);
        EXPECT_EQ(parsed, levels == 6);
        if (parsed) {
            EXPECT_EQ(DepthBelow(&node), 6);
        } else {
            ASSERT_EQ(observer.rejections.size(), 1u);
            EXPECT_EQ(observer.rejections[0].reason, "nested more than 256 levels deep");
        }
    }
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
            if (!injected) {
                EXPECT_TRUE(built);
            }
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
        const long failures = hmitest::ForEachAllocationFailure(build, check);
        EXPECT_GT(failures, 100);
    }
}

}  // namespace
