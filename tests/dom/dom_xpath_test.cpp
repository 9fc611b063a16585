#include "dom/dom_fixture.h"

namespace domtest {
namespace {

const Text kMedia = u"<r xmlns:iv='" DOMTEST_IV u"'><m id='plain' iv:id='ns'><iv:checksum>c1</iv:checksum></m>"
                    u"<checksum>none</checksum><x:checksum xmlns:x='urn:x'>other</x:checksum>"
                    u"<iv:checksum>c2</iv:checksum></r>";

// selectNodes gives every match in document order and selectSingleNode the first, S_FALSE for none;
// a query that is not a node set over declared prefixes fails.
TEST_F(DomTest, SelectionGivesMatchesInDocumentOrderOrFails) {
    const struct {
        Text xml;
        Text query;
        std::vector<Text> texts;
    } cases[] = {
        {kMedia, u".//iv:checksum", {u"c1", u"c2"}},
        {kMedia, u"//checksum", {u"none"}},
        {kMedia, u".//m/@id", {u"plain"}},
        {kMedia, u".//m/@iv:id", {u"ns"}},
        {kMedia, u"//nothing", {}},
        {u"<r><a>1</a><b><a>2</a></b><a>3</a></r>", u"//b | //a", {u"1", u"2", u"2", u"3"}},
        {u"<r><m>a</m><m xmlns='urn:x'>b</m></r>", u".//m", {u"a"}},
        {u"<a xmlns:p='urn:p' x='1' p:y='2'/>", u"/a/@*", {u"1", u"2"}},  // no namespace declaration
        {kMedia, u"//q:checksum", {u"(E_FAIL)"}},
        {kMedia, u"count(*)", {u"(E_FAIL)"}},
        {kMedia, u"", {u"(E_FAIL)"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Show(c.query));
        Own<IXMLDOMNodeList*> list;
        ASSERT_TRUE(Load(c.xml));
        const HRESULT hr = doc_->selectNodes(Bstr(c.query), list.Out());
        EXPECT_EQ(c.texts, hr == S_OK ? Each(list, TextOf) : std::vector<Text>{Failure(hr)});
        EXPECT_EQ(c.texts.empty() ? u"(no match)" : c.texts[0], TextAt(c.query));
    }
}

}  // namespace
}  // namespace domtest
