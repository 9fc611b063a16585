#include "dom/dom_fixture.h"

namespace domtest {
namespace {

struct TextCase {
    const char* xml;
    const char* query;
    const char* text;
};

TEST_F(DomTest, TextJoinsTrimsAndMarksRemovedWhiteSpace) {
    const TextCase cases[] = {
        {"<a><b>x</b>\n <c>y</c></a>", "/a", "x y"},
        {"<a><b>x</b> <!--c--> <c>y</c></a>", "/a", "x y"},
        {"<a> p <b> q </b> r </a>", "/a", "p  q  r"},
        {"<a>t1<!--c-->t2</a>", "/a", "t1t2"},
        {"<a>t1<?pi x?>t2</a>", "/a", "t1t2"},
        {"<a>   </a>", "/a", ""},
        {"<bs>fn1.txt\n</bs>", "/bs", "fn1.txt"},
        {"<a> Text &#65; end </a>", "/a", "Text A end"},
        {"<a>&#65;&#66; &#67; </a>", "/a", "AB C"},
        {"<a>foo\n\n\n\nbar</a>", "/a", "foo\n\n\n\nbar"},
        {"<a>&lt;&amp;&gt;</a>", "/a", "<&>"},
        {"<a><![CDATA[  x  ]]></a>", "/a", "  x  "},
        {"<a> y <![CDATA[ x ]]> z </a>", "/a", "y  x  z"},
        {"<a xml:space='preserve'> x </a>", "/a", " x "},
        {"<a xml:space='preserve'><b> x </b></a>", "/a/b", " x "},
        {"<a xml:space='preserve'><b>x</b> <c>y</c></a>", "/a", "x y"},
        {"<a> t </a>", "/a/text()", "t"},
        {"<a><![CDATA[ c ]]></a>", "/a/text()", " c "},
        {"<a><!-- c --></a>", "/a/comment()", " c "},
        {"<a x='  v  '/>", "/a/@x", "  v  "},
        {"<a x=''/>", "/a/@x", ""},
        {"<a x='&#65;&amp;'/>", "/a/@x", "A&"},
    };
    for (const TextCase& c : cases) {
        SCOPED_TRACE(c.xml);
        ASSERT_TRUE(Load(c.xml));
        EXPECT_EQ(c.text, TextOf(c.query)) << c.query;
    }
}

TEST_F(DomTest, DocumentTextIsItsElementsText) {
    ASSERT_TRUE(Load("<?xml version='1.0'?><!--c--><a><b>x</b>\n<c>y</c></a>"));
    EXPECT_EQ("x y", Text(doc_));
}

struct ChildCase {
    const char* xml;
    const char* query;
    LONG children;
};

TEST_F(DomTest, WhiteSpaceOnlyTextIsDroppedOutsidePreserve) {
    const ChildCase cases[] = {
        {"<a>\n <b/>\n <c/>\n</a>", "/a", 2},
        {"<a xml:space='preserve'>\n <b/>\n <c/>\n</a>", "/a", 5},
        {"<r xml:space='preserve'><a>\n <b/>\n</a></r>", "/r/a", 3},
        {"<r xml:space='preserve'><a xml:space='default'>\n <b/>\n</a></r>", "/r/a", 1},
        {"<a>   </a>", "/a", 0},
        {"<a><![CDATA[ ]]></a>", "/a", 1},
        {"<a> x <b/></a>", "/a", 2},
    };
    for (const ChildCase& c : cases) {
        SCOPED_TRACE(c.xml);
        ASSERT_TRUE(Load(c.xml));
        Ptr<IXMLDOMNode> node;
        ASSERT_EQ(S_OK, Select(c.query, node));
        EXPECT_EQ(c.children, ChildCount(node.Get()));
    }
}

TEST_F(DomTest, AttributeValueArrivesAsItsTextChild) {
    ASSERT_TRUE(Load("<a type='glossy'/>"));
    Ptr<IXMLDOMNode> attribute;
    ASSERT_EQ(S_OK, Select("/a/@type", attribute));
    Ptr<IXMLDOMNodeList> children;
    ASSERT_EQ(S_OK, attribute->get_childNodes(children.Out()));
    LONG length = -1;
    ASSERT_EQ(S_OK, children->get_length(&length));
    ASSERT_EQ(1, length);
    Ptr<IXMLDOMNode> value;
    ASSERT_EQ(S_OK, children->get_item(0, value.Out()));
    DOMNodeType type = NODE_INVALID;
    EXPECT_EQ(S_OK, value->get_nodeType(&type));
    EXPECT_EQ(NODE_TEXT, type);
    EXPECT_EQ("glossy", Text(value.Get()));
}

TEST_F(DomTest, TextOfADeepDocument) {
    std::string xml;
    for (int i = 0; i < 256; ++i) xml += "<e>" + std::to_string(i % 10);
    for (int i = 0; i < 256; ++i) xml += "</e>";
    ASSERT_TRUE(Load(xml));
    std::string text = Text(doc_);
    ASSERT_EQ(256u, text.size());
    EXPECT_EQ("0123456789", text.substr(0, 10));
}

}  // namespace
}  // namespace domtest
