#include "dom/dom_fixture.h"

namespace domtest {
namespace {

const Text kMedia = u"<r xmlns:iv='" DOMTEST_IV u"'><m id='plain' iv:id='ns'><iv:checksum>c1</iv:checksum></m>"
                    u"<checksum>none</checksum><x:checksum xmlns:x='urn:x'>other</x:checksum>"
                    u"<iv:checksum>c2</iv:checksum></r>";

// selectNodes gives every match in document order and selectSingleNode the first, S_FALSE for none.
TEST_F(DomTest, SelectionGivesMatchesInDocumentOrder) {
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
        {u"<r><a n='1'/><b><a n='2'/></b><a n='3'/></r>", u"//a/@n", {u"1", u"2", u"3"}},
        {u"<m xmlns='urn:x'><m/></m>", u".//m", {}},
        {u"<r><m>a</m><m xmlns='urn:x'>b</m></r>", u".//m", {u"a"}},
        {u"<a xmlns:p='urn:p' x='1' p:y='2'/>", u"/a/@*", {u"1", u"2"}},
        {u"<a xmlns:p='urn:p' x='1'/>", u"/a/@*[local-name()='p']", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Show(c.query));
        ASSERT_TRUE(Load(c.xml));
        Ptr<IXMLDOMNodeList> list;
        LONG length = -1;
        ASSERT_EQ(S_OK, doc_->selectNodes(Bstr(c.query), list.Out()));
        ASSERT_EQ(S_OK, list->get_length(&length));
        std::vector<Text> texts;
        for (LONG i = 0; i <= length; ++i) {
            Ptr<IXMLDOMNode> item;
            EXPECT_EQ(i < length ? S_OK : S_FALSE, list->get_item(i, item.Out()));
            if (item) texts.push_back(TextOf(item.Get()));
        }
        EXPECT_EQ(c.texts, texts);
        Ptr<IXMLDOMNode> first;
        EXPECT_EQ(c.texts.empty() ? S_FALSE : S_OK, Select(c.query, first));
        if (first) {
            EXPECT_EQ(c.texts[0], TextOf(first.Get()));
        }
    }
}

TEST_F(DomTest, BadQueriesFail) {
    ASSERT_TRUE(Load(kMedia));
    for (const Text query : {u"//q:checksum", u"//[", u"count(*)", u"string(//m/@id)", u""}) {
        Ptr<IXMLDOMNode> node;
        Ptr<IXMLDOMNodeList> list;
        EXPECT_EQ(E_FAIL, Select(query, node));
        EXPECT_EQ(E_FAIL, doc_->selectNodes(Bstr(query), list.Out()));
    }
}

}  // namespace
}  // namespace domtest
