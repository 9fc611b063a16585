#include <vector>
#include "dom/dom_fixture.h"

namespace domtest {
namespace {

constexpr const char* kMedia =
    "<root xmlns:iv='http://xrvhmi.example.org/ns/cmd/2008/07/common/'>"
    "<medium id='plain' iv:id='ns'><iv:checksum>c1</iv:checksum></medium>"
    "<iv:medianame><iv:medianame_item language='en'>Plain</iv:medianame_item>"
    "<iv:medianame_item language='ja'>Futsu</iv:medianame_item>"
    "<iv:medianame_item language='en'>Second</iv:medianame_item></iv:medianame>"
    "<checksum>no namespace</checksum>"
    "<x:checksum xmlns:x='urn:other'>other namespace</x:checksum>"
    "<iv:checksum>c2</iv:checksum>"
    "</root>";

struct SingleCase {
    const char* query;
    HRESULT hr;
    const char* text;
};

TEST_F(DomTest, SelectSingleNodeGivesTheFirstMatchInDocumentOrder) {
    ASSERT_TRUE(Load(kMedia));
    const SingleCase cases[] = {
        {".//iv:checksum", S_OK, "c1"},
        {"//checksum", S_OK, "no namespace"},
        {".//iv:medianame_item[@language=\"en\"]", S_OK, "Plain"},
        {".//iv:medianame_item[@language=\"ja\"]", S_OK, "Futsu"},
        {".//iv:medianame_item[@language=\"EN\"]", S_FALSE, "(no match)"},
        {".//medium/@id", S_OK, "plain"},
        {".//medium/@iv:id", S_OK, "ns"},
        {".//iv:missing", S_FALSE, "(no match)"},
        {"(//iv:checksum | //medium)[1]", S_OK, "c1"},
    };
    for (const SingleCase& c : cases) {
        Ptr<IXMLDOMNode> node;
        EXPECT_EQ(c.hr, Select(c.query, node)) << c.query;
        EXPECT_EQ(c.text, node ? Text(node.Get()) : "(no match)") << c.query;
    }
}

TEST_F(DomTest, BadQueriesFail) {
    ASSERT_TRUE(Load(kMedia));
    const char* queries[] = {
        "//q:checksum",                                  // prefix not in SelectionNamespaces
        ".//iv:medianame_item[@language=\"a\"b\"]",      // language value with a double quote
        "//[",
        "count(*)",
        "string(//medium/@id)",
        "",
    };
    for (const char* query : queries) {
        Ptr<IXMLDOMNode> node;
        EXPECT_EQ(E_FAIL, Select(query, node)) << query;
        Bstr text(query);
        Ptr<IXMLDOMNodeList> list;
        EXPECT_EQ(E_FAIL, doc_->selectNodes(text, list.Out())) << query;
        list.Reset();
    }
}

struct ListCase {
    const char* xml;
    const char* query;
    std::vector<std::string> texts;
};

TEST_F(DomTest, SelectNodesGivesAllMatchesInDocumentOrder) {
    const ListCase cases[] = {
        {kMedia, ".//iv:medianame_item", {"Plain", "Futsu", "Second"}},
        {kMedia, ".//iv:medianame_item[@language=\"en\"]", {"Plain", "Second"}},
        {kMedia, "//nothing", {}},
        {"<r><a>1</a><b><a>2</a></b><a>3</a></r>", "//b | //a", {"1", "2", "2", "3"}},
        {"<r><a n='1'/><b><a n='2'/></b><a n='3'/></r>", "//a/@n", {"1", "2", "3"}},
        {"<medium xmlns='urn:x'><medium/></medium>", ".//medium", {}},
        {"<r><medium>a</medium><medium xmlns='urn:x'>b</medium></r>", ".//medium", {"a"}},
        {"<a xmlns:p='urn:p' x='1' p:y='2'/>", "/a/@*", {"1", "2"}},
        {"<a xmlns:p='urn:p' x='1' p:y='2'/>", "/a/@x | /a/@*[local-name()='p']", {"1"}},
    };
    for (const ListCase& c : cases) {
        SCOPED_TRACE(c.query);
        ASSERT_TRUE(Load(c.xml));
        Bstr query(c.query);
        Ptr<IXMLDOMNodeList> list;
        ASSERT_EQ(S_OK, doc_->selectNodes(query, list.Out()));
        LONG length = -1;
        ASSERT_EQ(S_OK, list->get_length(&length));
        ASSERT_EQ(static_cast<LONG>(c.texts.size()), length);
        for (LONG i = 0; i < length; ++i) {
            Ptr<IXMLDOMNode> item;
            ASSERT_EQ(S_OK, list->get_item(i, item.Out()));
            EXPECT_EQ(c.texts[i], Text(item.Get())) << i;
        }
        Ptr<IXMLDOMNode> beyond;
        EXPECT_EQ(S_FALSE, list->get_item(length, beyond.Out()));
        EXPECT_EQ(nullptr, beyond.Get());
    }
}

TEST_F(DomTest, QueriesRelativeToANode) {
    ASSERT_TRUE(Load(kMedia));
    Ptr<IXMLDOMNode> medium, checksum, attribute, outside;
    ASSERT_EQ(S_OK, Select(".//medium", medium));
    ASSERT_EQ(S_OK, Select(".//iv:checksum", checksum, medium.Get()));
    EXPECT_EQ("c1", Text(checksum.Get()));
    ASSERT_EQ(S_OK, Select("@id", attribute, medium.Get()));
    EXPECT_EQ("plain", Text(attribute.Get()));
    EXPECT_EQ(S_FALSE, Select(".//iv:medianame_item", outside, medium.Get()));
}

struct NamespacesCase {
    const char* property;
    HRESULT hr;
};

TEST_F(DomTest, SelectionNamespacesProperty) {
    ASSERT_TRUE(Load("<r xmlns:a='urn:a' xmlns:b='urn:b'><a:x>1</a:x><b:x>2</b:x></r>"));
    const NamespacesCase cases[] = {
        {"xmlns:p='urn:a' xmlns:q=\"urn:b\"", S_OK},
        {"xmlns:q='urn:b' xmlns:p='urn:a' xmlns='urn:default'", S_OK},
        {"xmlns:p = 'urn:a'", E_FAIL},
        {"xmlns:p='urn:a' xmlns:q='urn:b", E_FAIL},
        {"p='urn:a'", E_FAIL},
        {"xmlns:p=urn:a", E_FAIL},
    };
    Bstr name("SelectionNamespaces");
    for (const NamespacesCase& c : cases) {
        SCOPED_TRACE(c.property);
        Bstr value(c.property);
        EXPECT_EQ(c.hr, doc_->setProperty(name, StringVariant(value)));
        if (c.hr != S_OK) continue;
        EXPECT_EQ("1", TextOf("//p:x"));
        EXPECT_EQ("2", TextOf("//q:x"));
        Ptr<IXMLDOMNode> node;
        EXPECT_EQ(E_FAIL, Select("//iv:x", node));
    }
}

}  // namespace
}  // namespace domtest
