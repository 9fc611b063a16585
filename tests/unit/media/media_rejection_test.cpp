// Media that must be rejected as a whole, and why the observer is told they are.
#include <gtest/gtest.h>

#include <vector>

#include "media/media_detail.h"
#include "media_test_support.h"

namespace {

using mediatest::Ascii;

struct RejectionCase {
    const WCHAR* body;
    const char* path;
    const char* reason;
};

class MediaRejectionTest : public mediatest::MediaDocumentTest {};

TEST_F(MediaRejectionTest, WholeMediumIsRejectedAndExplained) {
    const std::vector<RejectionCase> cases = {
        {HMI_W("<printcolormode/>"), "medium/printcolormode[1]", "missing attribute \"type\""},
        {HMI_W(R"(<printcolormode type="color"/><printcolormode type="all">
             <borderlessprint type="ON"/><borderlessprint type=""/><borderlessprint/></printcolormode>)"),
         "medium/printcolormode[2]/borderlessprint[3]", "missing attribute \"type\""},
        {HMI_W(R"(<printcolormode type="color"><borderlessprint type="ON"><print_purpose type="photo">
             <printquality_rgb type="1" threeposition="fine"/><printquality_index type="1" threeposition="fine"/>
             <printquality_rgb type="2" threeposition="fine"/><printquality_rgb type="3"/>
             </print_purpose></borderlessprint></printcolormode>)"),
         "medium/printcolormode[1]/borderlessprint[1]/print_purpose[1]/printquality_rgb[3]",
         "missing attribute \"threeposition\""},
        {HMI_W(R"(<printcolormode type="color"><borderlessprint type="ON"><print_purpose type="photo">
             <printquality_cmyk_1DLUT threeposition="fine"/></print_purpose></borderlessprint></printcolormode>)"),
         "medium/printcolormode[1]/borderlessprint[1]/print_purpose[1]/printquality_cmyk_1DLUT[1]",
         "missing attribute \"type\""},
        {HMI_W("<locale>WW<printcolormode/></locale>"), "medium/locale[1]/printcolormode[1]",
         "missing attribute \"type\""},
        {HMI_W("<extra/><extra><print_purpose/></extra>"), "medium/extra[2]/print_purpose[1]",
         "missing attribute \"type\""},
        {HMI_W("<availableprintcolormode>color,monochrome,xyz</availableprintcolormode>"), "medium",
         "availableprintcolormode holds 3 values, capacity 2"},
        {HMI_W("<locale>WW,JA,xx,US,EU,WW,JA</locale>"), "medium", "locale holds 6 values, capacity 4"},
        {HMI_W("<printarea>1,0,2,3,4,5,6</printarea>"), "medium", "printarea holds 6 values, capacity 4"},
        {HMI_W(R"(<printcolormode type="color"><borderlessprint type="ON"><print_purpose type="photo">
             <printquality_rgb type="1" threeposition="fine">
             <availableclearcoat>none,auto,all,custom,none,none</availableclearcoat></printquality_rgb>
             </print_purpose></borderlessprint></printcolormode>)"),
         "medium/printcolormode[1]/borderlessprint[1]/print_purpose[1]/printquality_rgb[1]",
         "availableclearcoat holds 6 values, capacity 4"},
        {HMI_W(R"(<printcolormode type="color"><borderlessprint type="ON">
             <availableprint_purpose>photo,proof,cad,all</availableprint_purpose></borderlessprint></printcolormode>)"),
         "medium/printcolormode[1]/borderlessprint[1]", "availableprint_purpose holds 4 values, capacity 3"},
    };
    for (const RejectionCase& c : cases) {
        SCOPED_TRACE(Ascii(c.body));
        mediatest::RecordingObserver observer;
        EXPECT_FALSE(Build(mediatest::MediumDocument(c.body), &observer));
        ASSERT_EQ(observer.rejections.size(), 1u);
        EXPECT_EQ(observer.rejections[0].path, c.path);
        EXPECT_EQ(observer.rejections[0].reason, c.reason);
        EXPECT_FALSE(Build(mediatest::MediumDocument(c.body)));
    }
}

TEST_F(MediaRejectionTest, ObserverIsOnlyInstalledForItsParse) {
    mediatest::RecordingObserver observer;
    {
        HMIXMLRejectionScope scope(&observer);
        EXPECT_FALSE(Build(mediatest::MediumDocument(HMI_W("<printcolormode/>")), nullptr));
    }
    EXPECT_TRUE(observer.rejections.empty());
    EXPECT_FALSE(Build(mediatest::MediumDocument(HMI_W("<printcolormode/>"))));
    EXPECT_TRUE(observer.rejections.empty());
}

}  // namespace
