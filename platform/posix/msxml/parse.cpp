#include "posix/msxml/parse.h"

#include <cstdio>
#include <cstring>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>
#include "posix/com/allocation.h"
#include "posix/msxml/file_text.h"
#include "posix/msxml/libxml_setup.h"

namespace {

// XML_PARSE_DTDLOAD, NOENT, DTDVALID and HUGE are never passed: nothing external is read and
// libxml2 keeps its limits (text nodes over 10 MB are refused). COMPACT keeps short texts inside their
// nodes, one allocation fewer for most values of a media document; it allows no change to the tree
// after the parse, and this DOM makes none.
constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_COMPACT;

// libxml2 refuses longer text nodes only when they arrive in pieces (non-ASCII text, references);
// counting here refuses every one, whatever its content.
constexpr size_t kMaxTextBytes = XML_MAX_TEXT_LENGTH;

struct ParseState {
    bool prohibitDtd;
    ParseFailure* failure;
    int depth = 0;          // elements open
    size_t textBytes = 0;   // of the run of character data being read
    bool refused = false;
    bool preserve[kMaxElementDepth + 1] = {};  // xml:space="preserve" in scope, by depth
};

ParseState* State(void* context) {
    return static_cast<ParseState*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

// Keeps the first reason only; a message is cut to the buffer, a line end dropped.
void Record(ParseFailure* failure, long line, long column, const char* reason) {
    if (failure->failed) return;
    failure->failed = true;
    failure->line = line;
    failure->column = column;
    std::snprintf(failure->reason, sizeof failure->reason, "%s", reason ? reason : "not well-formed");
    failure->reason[std::strcspn(failure->reason, "\r\n")] = 0;
}

void Refuse(void* context, const char* reason) {
    auto* parser = static_cast<xmlParserCtxtPtr>(context);
    State(context)->refused = true;
    Record(State(context)->failure, xmlSAX2GetLineNumber(context), xmlSAX2GetColumnNumber(context), reason);
    xmlStopParser(parser);
}

bool IsBlank(const xmlChar* text) {
    for (; *text; ++text)
        if (*text != ' ' && *text != '\t' && *text != '\r' && *text != '\n') return false;
    return true;
}

void Mark(xmlNodePtr node, uintptr_t mark) {
    node->_private = reinterpret_cast<void*>(HMISpaceMarks(node) | mark);
}

// Where a run of character data ends, drops the text node it made if that holds only white space
// outside xml:space="preserve"; true when one was dropped. Done here, while the node is at hand,
// rather than in a walk of the finished tree.
bool EndTextRun(void* context) {
    ParseState* state = State(context);
    state->textBytes = 0;
    xmlNodePtr parent = static_cast<xmlParserCtxtPtr>(context)->node;
    xmlNodePtr last = parent ? parent->last : nullptr;
    if (!last || last->type != XML_TEXT_NODE || state->preserve[state->depth] || !IsBlank(last->content))
        return false;
    xmlUnlinkNode(last);
    xmlFreeNode(last);
    return true;
}

// Adds a node through libxml2's handler, marking it when white space before it was dropped.
template <typename Add>
void AddAfterText(void* context, Add add) {
    xmlNodePtr parent = static_cast<xmlParserCtxtPtr>(context)->node;
    bool dropped = EndTextRun(context);
    add();
    if (dropped && parent && parent->last) Mark(parent->last, kSpaceRemovedBefore);
}

// The xml:space setting among SAX2 attributes (localname, prefix, URI, value, end), else inherited.
bool SpacePreserved(const xmlChar** attributes, int count, bool inherited) {
    for (int i = 0; i < count; ++i) {
        const xmlChar** attribute = attributes + 5 * i;
        if (!attribute[2] || !xmlStrEqual(attribute[2], XML_XML_NAMESPACE) ||
            !xmlStrEqual(attribute[0], reinterpret_cast<const xmlChar*>("space")))
            continue;
        return attribute[4] - attribute[3] == 8 && std::memcmp(attribute[3], "preserve", 8) == 0;
    }
    return inherited;
}

// libxml2 drops a namespace declaration it cannot allocate without a word, leaving the element
// in a namespace with no URI; an element short of what the tag declared is refused here.
bool IsWhole(xmlNodePtr element, const xmlChar* uri, int namespaceCount, int attributeCount) {
    if (!element || (uri && (!element->ns || !element->ns->href))) return false;
    for (xmlNsPtr ns = element->nsDef; ns; ns = ns->next) --namespaceCount;
    for (xmlAttrPtr attribute = element->properties; attribute; attribute = attribute->next) --attributeCount;
    return namespaceCount == 0 && attributeCount == 0;
}

void OnError(void* context, xmlErrorPtr error) {
    if (!error || error->level < XML_ERR_ERROR) return;
    State(context)->refused = true;
    Record(State(context)->failure, error->line, error->int2, error->message);
}

void OnInternalSubset(void* context, const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
    if (State(context)->prohibitDtd) Refuse(context, "DTD is prohibited");
    else xmlSAX2InternalSubset(context, name, publicId, systemId);
}

void OnExternalSubset(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}

xmlParserInputPtr OnResolveEntity(void*, const xmlChar*, const xmlChar*) { return nullptr; }

void OnCharacters(void* context, const xmlChar* text, int length) {
    ParseState* state = State(context);
    state->textBytes += static_cast<size_t>(length);
    if (state->textBytes > kMaxTextBytes) return Refuse(context, "text node too long");
    xmlSAX2Characters(context, text, length);
}

void OnCdata(void* context, const xmlChar* text, int length) {
    if (static_cast<size_t>(length) > kMaxTextBytes) return Refuse(context, "text node too long");
    AddAfterText(context, [&] { xmlSAX2CDataBlock(context, text, length); });
}

void OnComment(void* context, const xmlChar* text) {
    AddAfterText(context, [&] { xmlSAX2Comment(context, text); });
}

void OnProcessingInstruction(void* context, const xmlChar* target, const xmlChar* data) {
    AddAfterText(context, [&] { xmlSAX2ProcessingInstruction(context, target, data); });
}

void OnStartElement(void* context, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount, int defaultedCount,
                    const xmlChar** attributes) {
    ParseState* state = State(context);
    if (state->depth == kMaxElementDepth) return Refuse(context, "elements nested too deeply");
    AddAfterText(context, [&] {
        xmlSAX2StartElementNs(context, localName, prefix, uri, namespaceCount, namespaces, attributeCount,
                              defaultedCount, attributes);
    });
    ++state->depth;
    state->preserve[state->depth] = SpacePreserved(attributes, attributeCount, state->preserve[state->depth - 1]);
    if (!IsWhole(static_cast<xmlParserCtxtPtr>(context)->node, uri, namespaceCount, attributeCount))
        Refuse(context, "out of memory");
}

void OnEndElement(void* context, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri) {
    xmlNodePtr element = static_cast<xmlParserCtxtPtr>(context)->node;
    if (EndTextRun(context) && element) Mark(element, kSpaceRemovedAtEnd);
    --State(context)->depth;
    xmlSAX2EndElementNs(context, localName, prefix, uri);
}

// Reads with the hooks installed; the document only when everything went right.
template <typename Read>
xmlDocPtr Parse(DomVersion version, ParseFailure* failure, Read read) {
    HMIXmlPrepareThread();
    xmlParserCtxtPtr context = xmlNewParserCtxt();
    if (!context) {
        Record(failure, 0, 0, "out of memory");
        return nullptr;
    }
    ParseState state{version == DomVersion::Msxml60, failure};
    context->_private = &state;
    xmlSAXHandlerPtr sax = context->sax;
    sax->serror = OnError;
    sax->internalSubset = OnInternalSubset;
    sax->externalSubset = OnExternalSubset;
    sax->resolveEntity = OnResolveEntity;
    sax->startElementNs = OnStartElement;
    sax->endElementNs = OnEndElement;
    sax->characters = OnCharacters;
    sax->ignorableWhitespace = OnCharacters;
    sax->cdataBlock = OnCdata;
    sax->comment = OnComment;
    sax->processingInstruction = OnProcessingInstruction;
    xmlDocPtr doc = read(context);
    bool loaded = doc && !state.refused && context->wellFormed && xmlDocGetRootElement(doc);
    if (!loaded) {
        Record(failure, xmlSAX2GetLineNumber(context), xmlSAX2GetColumnNumber(context),
               doc && !xmlDocGetRootElement(doc) ? "no root element" : nullptr);
    }
    xmlFreeParserCtxt(context);
    if (loaded) return doc;
    xmlFreeDoc(doc);
    return nullptr;
}

// UTF-8 text handed to libxml2 through its I/O callbacks rather than xmlCtxtReadMemory, whose buffer
// libxml2 2.9 leaks when it runs out of memory while copying a text of more than 8 KB into it.
struct TextSource {
    const char* next;
    size_t left;
};

int ReadText(void* context, char* buffer, int length) {
    auto* source = static_cast<TextSource*>(context);
    const size_t n = source->left < static_cast<size_t>(length) ? source->left : static_cast<size_t>(length);
    std::memcpy(buffer, source->next, n);
    source->next += n;
    source->left -= n;
    return static_cast<int>(n);
}

// No encoding argument, and the declared one ignored: the text is UTF-8, and a named encoding would
// make libxml2 switch converters, which crashes it when that switch runs out of memory.
xmlDocPtr ReadUtf8(xmlParserCtxtPtr context, const char* text, size_t length, const char* url) {
    TextSource source{text, length};
    return xmlCtxtReadIO(context, ReadText, nullptr, &source, url, nullptr, kOptions | XML_PARSE_IGNORE_ENC);
}

// A file:// URL becomes its unescaped path; anything else is a path already.
char* LocalPath(const char* location) {
    const char* path = location;
    if (xmlStrncasecmp(reinterpret_cast<const xmlChar*>(location), reinterpret_cast<const xmlChar*>("file://"), 7) == 0) {
        path = location + 7;
        if (xmlStrncasecmp(reinterpret_cast<const xmlChar*>(path), reinterpret_cast<const xmlChar*>("localhost/"), 10) == 0)
            path += 9;
        return xmlURIUnescapeString(path, 0, nullptr);
    }
    return xmlMemStrdup(path);
}

}  // namespace

xmlDocPtr HMIParseText(const char* text, size_t length, DomVersion version, ParseFailure* failure) {
    return Parse(version, failure, [&](xmlParserCtxtPtr context) { return ReadUtf8(context, text, length, nullptr); });
}

xmlDocPtr HMIParseFile(const char* location, DomVersion version, ParseFailure* failure, size_t* textBytes) {
    HMIXmlPrepareThread();
    char* path = LocalPath(location);
    if (!path || !*path) {
        Record(failure, 0, 0, path ? "no file named" : "out of memory");
        xmlFree(path);
        return nullptr;
    }
    size_t length = 0;
    const char* reason = nullptr;
    char* text = HMIReadFileAsUtf8(path, &length, &reason);
    *textBytes = length;
    xmlDocPtr doc = nullptr;
    if (!text) {
        Record(failure, 0, 0, reason);
    } else {
        doc = Parse(version, failure, [&](xmlParserCtxtPtr context) { return ReadUtf8(context, text, length, path); });
    }
    HMIComFree(text);
    xmlFree(path);
    return doc;
}
