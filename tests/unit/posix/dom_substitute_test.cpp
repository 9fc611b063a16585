// Linux only: limits, hostile input, test hooks and allocation failure of our DOM substitute.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include "dom/dom_fixture.h"
#include "posix/testhooks.h"
#include "support/fault_injection.h"

namespace domtest {
namespace {

using DomSubstitute = DomTest;

// DOM objects and BSTRs alive, to see that a call left nothing behind.
std::pair<long, long> Live() { return {HMITestLiveDomObjects(), HMITestLiveBstrs()}; }

TEST_F(DomSubstitute, LiveCountsSeeObjectsAndStrings) {
    const auto before = Live();
    ASSERT_TRUE(Load(u"<a><b>x</b></a>"));
    Ptr<IXMLDOMNodeList> children;
    Bstr text;
    ASSERT_EQ(S_OK, doc_->get_childNodes(children.Out()));
    ASSERT_EQ(S_OK, doc_->get_text(text.Out()));
    EXPECT_EQ(std::make_pair(before.first + 1, before.second + 1), Live());
    doc_->Release();
    doc_ = nullptr;
    EXPECT_EQ(std::make_pair(before.first + 1, before.second + 1), Live()) << "the list keeps the document";
    children.Reset();
    EXPECT_EQ(std::make_pair(before.first - 1, before.second + 1), Live());
}

TEST_F(DomSubstitute, TextNodeOverTenMegabytesFailsToLoad) {
    EXPECT_FALSE(Load(u"<a>" + Text(11u << 20, u'x') + u"</a>"));
    EXPECT_EQ(u"(no match)", TextOf(u"/a"));
}

// Wine's MSXML 6.0 loads documents with a DTD; Windows' refuses them.
TEST_F(DomSubstitute, DtdsAreRefusedBy60AndResolveNothingExternalOrExplosiveIn30) {
    const std::filesystem::path secret = std::filesystem::temp_directory_path() / "hmi_dom_secret.txt";
    std::ofstream(secret) << "SECRET";
    const Text url = u"file://" + secret.u16string();
    EXPECT_FALSE(Load(u"<!DOCTYPE a SYSTEM '" + url + u"'><a/>"));
    ASSERT_NO_FATAL_FAILURE(Use(HMI_CLSID_DOMDocument30));
    ASSERT_TRUE(Load(u"<!DOCTYPE a [<!ENTITY e 'inner'>]><a>&e;</a>"));
    EXPECT_EQ(u"inner", TextOf(u"/a"));
    Load(u"<!DOCTYPE a [<!ENTITY e SYSTEM '" + url + u"'>]><a>&e;</a>");
    EXPECT_EQ(Text::npos, TextOf(u"/a").find(u"SECRET"));
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

TEST_F(DomSubstitute, Version30ShowsNamespaceDeclarationsOutsideTheXmlnsNamespace) {
    ASSERT_NO_FATAL_FAILURE(Use(HMI_CLSID_DOMDocument30));
    ASSERT_TRUE(Load(u"<a xmlns:ns='h' xmlns='d'/>"));
    Ptr<IXMLDOMNode> element;
    ASSERT_EQ(S_OK, Select(u"/*", element));
    EXPECT_EQ((std::vector<Text>{u"a xmlns:ns ns xmlns  h", u"a xmlns  (null)  d"}), AttributesOf(element.Get()));
}

TEST_F(DomSubstitute, NothingReachesStderr) {
    testing::internal::CaptureStderr();
    for (const Text xml : {u"<a>", u"<!DOCTYPE a><a/>", u"<p:a/>", u"<a>&e;</a>", u"<a x='1' x='2'/>"}) Load(xml);
    Load(u"<a/>");
    for (const Text query : {u"//[", u"//q:a", u"count(*)", u"f()"}) TextOf(query);
    VARIANT_BOOL loaded;
    doc_->load(StringVariant(Bstr(u"/nonexistent/hmi.xml")), &loaded);
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

bool OneOf(HRESULT hr, std::initializer_list<HRESULT> allowed) {
    return std::find(allowed.begin(), allowed.end(), hr) != allowed.end();
}

// Each allocation of a document's life fails in turn, once or from then on, with the text or a file
// (UTF-8, or converted from Latin-1) as the source: every call fails cleanly with E_OUTOFMEMORY or its
// ordinary failure, a loaded document is whole, and nothing is left alive.
TEST_F(DomSubstitute, EveryAllocationFailureFailsTheCallCleanly) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "hmi_dom_fault.xml";
    Bstr query(u".//iv:checksum"), all(u"//*"), file(path.u16string());
    for (const Text source : {u"text", u"UTF-8", u"ISO-8859-1"}) {
        const Text xml = u"<?xml version='1.0' encoding='" + (source == u"text" ? u"UTF-8" : source) +
                         u"'?><r xmlns:iv='" DOMTEST_IV u"'><m id='1'><iv:checksum>\n abc </iv:checksum></m></r>";
        std::ofstream(path) << std::string(xml.begin(), xml.end());
        Bstr text(xml);
        for (bool persistent : {false, true}) {
            SCOPED_TRACE(Show(source) + (persistent ? " persistent" : " once"));
            const auto before = Live();
            HRESULT create, load, select, get, attributes, list;
            VARIANT_BOOL loaded;
            Text value;
            const long failures = hmitest::ForEachAllocationFailure(
                [&] {
                    create = load = select = get = attributes = list = E_UNEXPECTED;
                    loaded = 0x5A5A;
                    value.clear();
                    IXMLDOMDocument2* doc = nullptr;
                    if ((create = CreateDocument(HMI_CLSID_DOMDocument60, &doc)) != S_OK) return;
                    load = source == u"text" ? doc->loadXML(text, &loaded) : doc->load(StringVariant(file), &loaded);
                    Ptr<IXMLDOMNode> node;
                    Ptr<IXMLDOMNamedNodeMap> map;
                    Ptr<IXMLDOMNodeList> nodes;
                    Bstr got;
                    if ((select = doc->selectSingleNode(query, node.Out())) == S_OK) {
                        if ((get = node->get_text(got.Out())) == S_OK) value = got.Get();
                        if ((attributes = node->get_attributes(map.Out())) != S_OK) map.Reset();
                    }
                    if (select != S_OK) node.Reset();
                    if ((list = doc->selectNodes(all, nodes.Out())) != S_OK) nodes.Reset();
                    doc->Release();
                },
                [&](bool injected) {
                    EXPECT_EQ(before, Live());
                    if (!injected) {
                        EXPECT_EQ((std::vector<HRESULT>(6, S_OK)),
                                  (std::vector<HRESULT>{create, load, select, get, attributes, list}));
                        EXPECT_EQ(u"abc", value);
                        return;
                    }
                    EXPECT_TRUE(OneOf(create, {S_OK, E_OUTOFMEMORY})) << std::hex << create;
                    if (create != S_OK) return;
                    EXPECT_EQ(load == S_OK ? VARIANT_TRUE : VARIANT_FALSE, loaded);
                    EXPECT_TRUE(OneOf(load, {S_OK, S_FALSE})) << std::hex << load;
                    // A loaded document is whole: the node is there unless the query itself ran out.
                    EXPECT_TRUE(OneOf(select, {load == S_OK ? S_OK : S_FALSE, E_OUTOFMEMORY, E_FAIL}))
                        << std::hex << select;
                    EXPECT_TRUE(OneOf(list, {S_OK, E_OUTOFMEMORY, E_FAIL})) << std::hex << list;
                    if (select != S_OK) return;
                    EXPECT_TRUE(OneOf(get, {S_OK, E_OUTOFMEMORY})) << std::hex << get;
                    EXPECT_TRUE(get != S_OK || value == u"abc");
                    EXPECT_TRUE(OneOf(attributes, {S_OK, E_OUTOFMEMORY})) << std::hex << attributes;
                },
                persistent);
            EXPECT_GT(failures, 10);
        }
    }
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace domtest
