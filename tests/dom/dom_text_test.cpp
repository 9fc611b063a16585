#include "dom/dom_fixture.h"

namespace domtest {
namespace {

TEST_F(DomTest, TextJoinsTrimsAndMarksRemovedWhiteSpace) {
    const struct {
        Text xml;
        Text query;
        Text text;
    } cases[] = {
        {u"<a><b>x</b>\n <c>y</c></a>", u"/a", u"x y"},
        {u"<a><b>x</b> <!--c--> <c>y</c></a>", u"/a", u"x y"},
        {u"<?xml version='1.0'?><!--c--><a><b>x</b>\n<c>y</c></a>", u".", u"x y"},
        {u"<a> p <b> q </b> r </a>", u"/a", u"p  q  r"},
        {u"<a>t1<!--c-->t2<?pi x?>t3</a>", u"/a", u"t1t2t3"},
        {u"<bs>fn1.txt\n</bs>", u"/bs", u"fn1.txt"},
        {u"<a> Text &#65; end </a>", u"/a", u"Text A end"},
        {u"<a>foo\n\n\n\nbar</a>", u"/a", u"foo\n\n\n\nbar"},
        {u"<a>&lt;&amp;&gt;</a>", u"/a", u"<&>"},
        {u"<a>\u00E9\u20AC\U0001F600</a>", u"/a", u"\u00E9\u20AC\U0001F600"},
        {u"<a><![CDATA[  x  ]]></a>", u"/a", u"  x  "},
        {u"<a> y <![CDATA[ x ]]> z </a>", u"/a", u"y  x  z"},
        {u"<a xml:space='preserve'> x </a>", u"/a", u" x "},
        {u"<a xml:space='preserve'><b> x </b></a>", u"/a/b", u" x "},
        {u"<a> t </a>", u"/a/text()", u"t"},
        {u"<a><![CDATA[ c ]]></a>", u"/a/text()", u" c "},
        {u"<a><!-- c --></a>", u"/a/comment()", u" c "},
        {u"<a x='  v  '/>", u"/a/@x", u"  v  "},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(Load(c.xml));
        EXPECT_EQ(c.text, TextOf(c.query)) << Show(c.xml);
    }
}

}  // namespace
}  // namespace domtest
