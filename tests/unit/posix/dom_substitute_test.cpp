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

TEST_F(DomSubstitute, NothingReachesStderr) {
    testing::internal::CaptureStderr();
    for (const Text xml : {u"<a>", u"<!DOCTYPE a><a/>", u"<p:a/>", u"<a>&e;</a>", u"<a x='1' x='2'/>"}) Load(xml);
    Load(u"/nonexistent/hmi.xml", true);
    Load(u"<a/>");
    for (const Text query : {u"//[", u"//q:a", u"count(*)", u"f()"}) TextAt(query);
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

// Each allocation of a document's life fails in turn, once or from then on, with a file in UTF-8 or in
// Latin-1 as the source (loadXML is swept through the library in tests/unit/xml): the first call that does
// not succeed fails with E_OUTOFMEMORY or its ordinary failure, a loaded document is whole, and nothing
// is left alive.
TEST_F(DomSubstitute, EveryAllocationFailureFailsTheCallCleanly) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "hmi_dom_fault.xml";
    Bstr query(u".//iv:checksum"), all(u"//*"), file(path.u16string());
    // The failures each call may answer, in the order the calls are made.
    const std::vector<HRESULT> failures[] = {{E_OUTOFMEMORY}, {S_FALSE},       {E_OUTOFMEMORY, E_FAIL},
                                             {E_OUTOFMEMORY}, {E_OUTOFMEMORY, E_FAIL}, {E_OUTOFMEMORY}};
    const size_t calls = std::size(failures);
    for (const Text encoding : {u"UTF-8", u"ISO-8859-1"}) {
        const Text xml = u"<?xml version='1.0' encoding='" + encoding + u"'?><r xmlns:iv='" DOMTEST_IV
                         u"'><m id='1'><iv:checksum>\n abc </iv:checksum></m></r>";
        std::ofstream(path) << std::string(xml.begin(), xml.end());
        for (bool persistent : {false, true}) {
            SCOPED_TRACE(Show(encoding) + (persistent ? " persistent" : " once"));
            const auto before = Live();
            auto during = before;
            size_t done;  // the calls that succeeded before the first that did not
            HRESULT hr;
            VARIANT_BOOL loaded;
            Text value;
            const long runs = hmitest::ForEachAllocationFailure(
                [&] {
                    done = 0;
                    loaded = 0x5A5A;
                    value.clear();
                    Own<IXMLDOMDocument2*> doc;
                    Own<IXMLDOMNode*> node;
                    Own<IXMLDOMNamedNodeMap*> map;
                    Own<IXMLDOMNodeList*> nodes;
                    Bstr got;
                    const auto ok = [&](HRESULT result) { return (hr = result) == S_OK && ++done; };
                    if (ok(CreateDocument(HMI_CLSID_DOMDocument60, doc.Out())) &&
                        ok(doc->load(StringVariant(file), &loaded)) &&
                        ok(doc->selectSingleNode(query, node.Out())) && ok(node->get_attributes(map.Out())) &&
                        ok(doc->selectNodes(all, nodes.Out())) && ok(node->get_text(got.Out()))) {
                        value = Str(got);
                    }
                    during = Live();
                    doc.Reset();  // before the nodes, which keep it alive
                },
                [&](bool injected) {
                    EXPECT_EQ(before, Live());
                    EXPECT_TRUE(injected || (during.first > before.first && during.second > before.second));
                    EXPECT_TRUE(injected || done == calls) << done;
                    EXPECT_TRUE(done == calls || std::count(failures[done].begin(), failures[done].end(), hr))
                        << done << std::hex << " " << hr;
                    EXPECT_TRUE(done == 0 || loaded == (done > 1 ? VARIANT_TRUE : VARIANT_FALSE)) << loaded;
                    EXPECT_EQ(done == calls ? u"abc" : u"", value);
                },
                persistent);
            EXPECT_GT(runs, 10);
        }
    }
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace domtest
