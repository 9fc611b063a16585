#include "dom/dom_fixture.h"

namespace domtest {
namespace {

// The kinds of the node's children, in order.
Text ChildKinds(IXMLDOMNode* node) {
    Own<IXMLDOMNodeList*> children;
    EXPECT_EQ(S_OK, node->get_childNodes(children.Out()));
    const std::vector<char> kinds = Each(children, Kind);
    return Text(kinds.begin(), kinds.end());
}

// Names and namespaces; children without white-space-only text outside xml:space='preserve'; text joined,
// trimmed and with one space where white space was removed.
TEST_F(DomTest, NamesChildrenAndTextOfNodes) {
    const struct {
        Text xml;
        Text query;
        Text (*property)(IXMLDOMNode*);
        Text value;
    } cases[] = {
        {u"<ns:b xmlns:ns='urn:n'/>", u"/*", NamesOf, u"e ns:b b ns urn:n"},
        {u"<b/>", u"/b", NamesOf, u"e b b (null) (null)"},
        {u"<b xmlns='urn:d'/>", u"/*", NamesOf, u"e b b (null) urn:d"},
        {u"<b xmlns:p='" DOMTEST_IV u"' p:t='x'/>", u"/b/@iv:t", NamesOf, u"a p:t t p " DOMTEST_IV},
        {u"<b/>", u".", NamesOf, u"d #document (null) (null) (null)"},
        {u"<a>t<b/><!--c--><![CDATA[d]]><?p q?></a>", u"/a", ChildKinds, u"temcp"},
        {u"<a>\n <b/>\n <c/>\n</a>", u"/a", ChildKinds, u"ee"},
        {u"<a xml:space='preserve'>\n <b/>\n <c/>\n</a>", u"/a", ChildKinds, u"tetet"},
        {u"<r xml:space='preserve'><a xml:space='default'>\n <b/>\n</a></r>", u"/r/a", ChildKinds, u"e"},
        {u"<a>   </a>", u"/a", ChildKinds, u""}, {u"<a><![CDATA[ ]]></a>", u"/a", ChildKinds, u"c"},
        {u"<a><b>x</b>\n <c>y</c></a>", u"/a", TextOf, u"x y"},
        {u"<?xml version='1.0'?><!--c--><a><b>x</b>\n<c>y</c></a>", u".", TextOf, u"x y"},
        {u"<a> p <b> q </b> r </a>", u"/a", TextOf, u"p  q  r"},
        {u"<a>t1<!--c-->t2<?pi x?>t3</a>", u"/a", TextOf, u"t1t2t3"},
        {u"<a>&lt;&amp;&gt;\u00E9\u20AC\U0001F600</a>", u"/a", TextOf, u"<&>\u00E9\u20AC\U0001F600"},
        {u"<a><![CDATA[  x  ]]></a>", u"/a", TextOf, u"  x  "},
        {u"<a> t </a>", u"/a/text()", TextOf, u"t"}, {u"<a><![CDATA[ c ]]></a>", u"/a/text()", TextOf, u" c "},
    };
    for (const auto& c : cases) {
        Own<IXMLDOMNode*> node;
        ASSERT_TRUE(Load(c.xml));
        ASSERT_EQ(S_OK, Select(c.query, node));
        EXPECT_EQ(c.value, c.property(node)) << Show(c.xml) << " " << Show(c.query);
    }
}

}  // namespace
}  // namespace domtest
