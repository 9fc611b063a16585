#include <cstdio>
#include <filesystem>
#include <fstream>
#include "dom/dom_fixture.h"

using namespace std::string_literals;

namespace domtest {
namespace {

std::string Nested(int depth) {
    std::string xml;
    for (int i = 0; i < depth; ++i) xml += "<e>";
    for (int i = 0; i < depth; ++i) xml += "</e>";
    return xml;
}

struct LoadCase {
    const char* name;
    std::string xml;
    bool loads;
    bool wineLoads = loads;
};

TEST_F(DomTest, LoadXmlAnswersWhetherTheTextIsADocument) {
    const LoadCase cases[] = {
        {"element", "<a/>", true},
        {"declaration and element", "<?xml version='1.0'?><a>x</a>", true},
        {"foreign encoding declaration ignored", "<?xml version='1.0' encoding='Windows-1252'?><a>\xC3\xA9</a>", true},
        {"empty text", "", false},
        {"lone declaration", "<?xml version='1.0'?>", false},
        {"white space before declaration", " <?xml version='1.0'?><a/>", false},
        {"unclosed element", "<a><b></a>", false},
        {"two roots", "<a/><b/>", false},
        // Wine 8 accepts an undeclared prefix, which Windows' MSXML 6.0 refuses.
        {"undeclared prefix", "<p:a/>", false, true},
        {"undeclared entity", "<a>&e;</a>", false},
        {"depth 256", Nested(256), true},
        // Wine 8 does not implement MaxElementDepth (256 by default on Windows).
        {"depth 257", Nested(257), false, true},
        {"depth 10000", Nested(10000), false},
    };
    const bool wine = RunsOnWine();
    for (const LoadCase& c : cases) EXPECT_EQ(wine ? c.wineLoads : c.loads, Load(c.xml)) << c.name;
}

TEST_F(DomTest, DocumentWithDoctypeIsRefused) {
    if (RunsOnWine()) GTEST_SKIP() << "Wine's MSXML 6.0 loads documents with a DTD; Windows refuses them";
    EXPECT_FALSE(Load("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>"));
    EXPECT_FALSE(Load("<!DOCTYPE a SYSTEM 'a.dtd'><a/>"));
}

TEST_F(DomTest, LoadXmlDecodesTheUtf16Text) {
    ASSERT_TRUE(Load("<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</a>"));
    EXPECT_EQ("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", TextOf("/a"));
}

TEST_F(DomTest, NullTextFailsToLoad) {
    VARIANT_BOOL loaded = 0x5A5A;
    EXPECT_EQ(S_FALSE, doc_->loadXML(nullptr, &loaded));
    EXPECT_EQ(VARIANT_FALSE, loaded);
    VARIANT source;
    VariantInit(&source);
    EXPECT_EQ(S_FALSE, doc_->load(source, &loaded));
    source.vt = VT_BSTR;
    EXPECT_EQ(S_FALSE, doc_->load(source, &loaded));
    EXPECT_EQ(E_POINTER, doc_->load(source, nullptr));
}

TEST_F(DomTest, FailedLoadLeavesAnEmptyDocument) {
    ASSERT_TRUE(Load("<a>x</a>"));
    ASSERT_FALSE(Load("<a>"));
    Ptr<IXMLDOMNode> node;
    EXPECT_EQ(S_FALSE, Select("/a", node));
    EXPECT_EQ(0, ChildCount(doc_));
}

TEST_F(DomTest, LargeTextNodeLoads) {
    std::string big(5u << 20, 'x');
    ASSERT_TRUE(Load("<a>" + big + "</a>"));
    Bstr text;
    ASSERT_EQ(S_OK, doc_->get_text(text.Out()));
    EXPECT_EQ(big.size(), SysStringLen(text.Get()));
}

class FileLoadTest : public DomTest {
protected:
    void SetUp() override {
        DomTest::SetUp();
        path_ = std::filesystem::temp_directory_path() /
                ("hmi_dom_" + std::to_string(reinterpret_cast<uintptr_t>(this)) + ".xml");
    }
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        DomTest::TearDown();
    }
    void Write(const std::string& bytes) { std::ofstream(path_, std::ios::binary) << bytes; }

    HRESULT LoadFrom(const std::string& location, VARIANT_BOOL* loaded) {
        Bstr source(location);
        return doc_->load(StringVariant(source), loaded);
    }
    std::string Url() const {
        std::string path = path_.generic_u8string();
        return path[0] == '/' ? "file://" + path : "file:///" + path;
    }

    std::filesystem::path path_;
};

TEST_F(FileLoadTest, LoadsAPathOrAFileUrl) {
    Write("<?xml version='1.0' encoding='UTF-8'?><a>\xC3\xA9</a>");
    for (const std::string& location : {path_.u8string(), Url()}) {
        VARIANT_BOOL loaded = 0x5A5A;
        EXPECT_EQ(S_OK, LoadFrom(location, &loaded)) << location;
        EXPECT_EQ(VARIANT_TRUE, loaded);
        EXPECT_EQ("\xC3\xA9", TextOf("/a")) << location;
    }
}

TEST_F(FileLoadTest, TakesTheEncodingFromTheFile) {
    Write("\xFF\xFE<\0a\0>\0\xE9\0<\0/\0a\0>\0"s);
    VARIANT_BOOL loaded = 0x5A5A;
    EXPECT_EQ(S_OK, LoadFrom(path_.u8string(), &loaded));
    EXPECT_EQ("\xC3\xA9", TextOf("/a"));
    Write("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>");
    EXPECT_EQ(S_OK, LoadFrom(path_.u8string(), &loaded));
    EXPECT_EQ("\xC3\xA9", TextOf("/a"));
}

TEST_F(FileLoadTest, MissingOrMalformedFileFailsToLoad) {
    VARIANT_BOOL loaded = 0x5A5A;
    EXPECT_EQ(S_FALSE, LoadFrom(path_.u8string(), &loaded));
    EXPECT_EQ(VARIANT_FALSE, loaded);
    Write("<a>");
    loaded = 0x5A5A;
    EXPECT_EQ(S_FALSE, LoadFrom(path_.u8string(), &loaded));
    EXPECT_EQ(VARIANT_FALSE, loaded);
}

}  // namespace
}  // namespace domtest
