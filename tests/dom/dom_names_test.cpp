#include "dom/dom_fixture.h"

namespace domtest {
namespace {

TEST_F(DomTest, NamesAndNamespacesOfNodes) {
    const struct {
        Text xml;
        const char16_t* query;  // null: the document
        Text names;
    } cases[] = {
        {u"<ns:b xmlns:ns='urn:n'/>", u"/*", u"e ns:b b ns urn:n"},
        {u"<b/>", u"/b", u"e b b (null) (null)"},
        {u"<b xmlns='urn:d'/>", u"/*", u"e b b (null) urn:d"},
        {u"<b xmlns='urn:d' id='1'/>", u"/*/@id", u"a id id (null) (null)"},
        {u"<b xmlns:p='" DOMTEST_IV u"' p:t='x'/>", u"/b/@iv:t", u"a p:t t p " DOMTEST_IV},
        {u"<b>t</b>", u"/b/text()", u"t #text (null) (null) (null)"},
        {u"<b><![CDATA[t]]></b>", u"/b/text()", u"c #cdata-section (null) (null) (null)"},
        {u"<b><!--t--></b>", u"/b/comment()", u"m #comment (null) (null) (null)"},
        {u"<b/>", nullptr, u"d #document (null) (null) (null)"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(Load(c.xml));
        Ptr<IXMLDOMNode> node;
        if (c.query) {
            ASSERT_EQ(S_OK, Select(c.query, node));
        }
        EXPECT_EQ(c.names, NamesOf(c.query ? node.Get() : doc_)) << Show(c.xml);
    }
}

TEST_F(DomTest, AttributeMapListsNamespaceDeclarationsAfterOrdinaryAttributes) {
    const struct {
        Text xml;
        std::vector<Text> attributes;  // names, then text
        bool wine;                     // Wine 8 answers E_OUTOFMEMORY for the item of a default declaration
    } cases[] = {
        {u"<a x='1' xmlns:ns='h' y='2'/>",
         {u"a x x (null) (null) 1", u"a y y (null) (null) 2", u"a xmlns:ns ns xmlns http://www.w3.org/2000/xmlns/ h"},
         true},
        {u"<a x='1' xmlns='d'/>", {u"a x x (null) (null) 1", u"a xmlns xmlns (null) http://www.w3.org/2000/xmlns/ d"},
         false},
    };
    for (const auto& c : cases) {
        if (RunsOnWine() && !c.wine) continue;
        ASSERT_TRUE(Load(c.xml));
        Ptr<IXMLDOMNode> element;
        ASSERT_EQ(S_OK, Select(u"/*", element));
        EXPECT_EQ(c.attributes, AttributesOf(element.Get()));
    }
}

TEST_F(DomTest, ChildrenInDocumentOrderWithoutWhiteSpaceOnlyTextOutsidePreserve) {
    const struct {
        Text xml;
        Text query;
        std::string kinds;
    } cases[] = {
        {u"<a>t<b/><!--c--><![CDATA[d]]><?p q?></a>", u"/a", "temcp"},
        {u"<a>\n <b/>\n <c/>\n</a>", u"/a", "ee"},
        {u"<a xml:space='preserve'>\n <b/>\n <c/>\n</a>", u"/a", "tetet"},
        {u"<r xml:space='preserve'><a>\n <b/>\n</a></r>", u"/r/a", "tet"},
        {u"<r xml:space='preserve'><a xml:space='default'>\n <b/>\n</a></r>", u"/r/a", "e"},
        {u"<a>   </a>", u"/a", ""},
        {u"<a><![CDATA[ ]]></a>", u"/a", "c"},
        {u"<a> x <b/></a>", u"/a", "te"},
        {u"<a type='glossy'/>", u"/a/@type", "t"},  // last: its child is checked below
    };
    Ptr<IXMLDOMNode> child;
    for (const auto& c : cases) {
        ASSERT_TRUE(Load(c.xml));
        Ptr<IXMLDOMNode> node;
        Ptr<IXMLDOMNodeList> children;
        LONG length = -1;
        ASSERT_EQ(S_OK, Select(c.query, node));
        ASSERT_EQ(S_OK, node->get_childNodes(children.Out()));
        ASSERT_EQ(S_OK, children->get_length(&length));
        std::string kinds;
        for (LONG i = 0; i < length; ++i) {
            ASSERT_EQ(S_OK, children->get_item(i, child.Out()));
            kinds += Kind(child.Get());
        }
        EXPECT_EQ(c.kinds, kinds) << Show(c.xml);
    }
    EXPECT_EQ(u"glossy", TextOf(child.Get())) << "the attribute's text child";
}

}  // namespace
}  // namespace domtest
