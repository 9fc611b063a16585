// The built library itself (XRVHMI.dll under Wine, libxrvhmi.so natively), called as a driver calls it.
#include <gtest/gtest.h>

#include "support/media_database.h"

namespace hmitest {
namespace {

TEST(SharedLibrary, DatabaseNamesAndHeadersThroughTheExports) {
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"0000001A", "PhotoGlossyPro"}, {"00000002", "PlainPaper"}}));
    ASSERT_TRUE(printer.SetText(MediumKey(0x1A, "HMN").c_str(), HMI_W("de"), HMI_W("Fotoglanz")));
    HMIAccess* access = HMIOpen(printer.Reopen());
    ASSERT_NE(access, nullptr);
    size_t required = 0;
    ASSERT_TRUE(HMIGetAvailableMedia(access, nullptr, 0, &required) == 0 && required == 16u + 2 * 130);
    std::vector<unsigned char> block(required, 0xCD);
    auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(block.data());
    ASSERT_TRUE(HMIGetAvailableMedia(access, media, block.size(), &required) == 1 && media->count == 2u);
    EXPECT_EQ(reinterpret_cast<unsigned char*>(media->ids), block.data() + 16);
    _tagHMIMediaInfoHeader header;
    EXPECT_TRUE(HMIGetMediaInfoHeader(access, media->ids[0], &header) == 1 && header.media_number == 0x1Au);
    WCHAR name[16];
    ASSERT_EQ(HMIGetMediaName(access, media->ids[0], HMI_W("de"), name, 16, &required), 1);
    EXPECT_EQ(WString(name), W("Fotoglanz"));
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
