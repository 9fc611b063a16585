// Linux only: limits and hostile input of our DOM substitute. Its allocation failures are swept through the
// library (tests/unit/xml/posix, and the File readers' sweep for loading files).
#include <filesystem>
#include <fstream>
#include "dom/dom_fixture.h"

namespace domtest {
namespace {

using DomSubstitute = DomTest;

TEST_F(DomSubstitute, TextNodeOverTenMegabytesFailsToLoad) {
    EXPECT_FALSE(Load(u"<a>" + Text(11u << 20, u'x') + u"</a>"));
    EXPECT_EQ(u"(no match)", TextAt(u"/a"));
}

// Wine's MSXML 6.0 loads documents with a DTD; Windows' refuses them.
TEST_F(DomSubstitute, DtdsAreRefusedBy60AndResolveNothingExternalOrExplosiveIn30) {
    const std::filesystem::path secret = std::filesystem::temp_directory_path() / "hmi_dom_secret.txt";
    std::ofstream(secret) << "SECRET";
    const Text url = u"file://" + secret.u16string();
    EXPECT_FALSE(Load(u"<!DOCTYPE a SYSTEM '" + url + u"'><a/>"));
    ASSERT_NO_FATAL_FAILURE(Use(HMI_CLSID_DOMDocument30));
    ASSERT_TRUE(Load(u"<!DOCTYPE a [<!ENTITY e 'inner'>]><a>&e;</a>"));
    EXPECT_EQ(u"inner", TextAt(u"/a"));
    Load(u"<!DOCTYPE a [<!ENTITY e SYSTEM '" + url + u"'>]><a>&e;</a>");
    EXPECT_EQ(Text::npos, TextAt(u"/a").find(u"SECRET"));
    EXPECT_TRUE(Load(u"<!DOCTYPE a SYSTEM '" + url + u"'><a>x</a>"));
    std::filesystem::remove(secret);
    Text bomb = u"<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
    for (char16_t i = u'1'; i <= u'9'; ++i) {
        bomb += u"<!ENTITY e" + Text(1, i) + u" '";
        for (int k = 0; k < 10; ++k) bomb += u"&e" + Text(1, static_cast<char16_t>(i - 1)) + u";";
        bomb += u"'>";
    }
    EXPECT_FALSE(Load(bomb + u"]><a>&e9;</a>"));
}

}  // namespace
}  // namespace domtest
