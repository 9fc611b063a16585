#include "posix/msxml/node_text.h"

#include <cstring>
#include <libxml/entities.h>
#include "posix/com/allocation.h"
#include "posix/msxml/dom_tree.h"
#include "posix/msxml/utf.h"

namespace {

bool IsSpace(WCHAR c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// The joined text of a subtree, grown on the substitute's allocator.
class TextBuilder {
public:
    ~TextBuilder() { HMIComFree(text_); }

    void SpaceRemoved() { pendingSpace_ = length_ > 0; }

    void Text(const xmlChar* piece) { Append(piece, false); }
    void Cdata(const xmlChar* piece) { Append(piece, true); }

    // The text, with its ends trimmed when asked; null when memory ran out.
    BSTR Finish(bool trim) const {
        if (failed_) return nullptr;
        size_t begin = 0, end = length_;
        if (trim) {
            size_t keepFrom = hasCdata_ ? cdataBegin_ : length_;
            size_t keepTo = hasCdata_ ? cdataEnd_ : 0;
            while (begin < keepFrom && IsSpace(text_[begin])) ++begin;
            while (end > begin && end > keepTo && IsSpace(text_[end - 1])) --end;
        }
        if (end - begin > UINT32_MAX / 4) return nullptr;
        return SysAllocStringLen(text_ ? text_ + begin : nullptr, static_cast<uint32_t>(end - begin));
    }

private:
    void Append(const xmlChar* piece, bool cdata) {
        size_t bytes = piece ? std::strlen(reinterpret_cast<const char*>(piece)) : 0;
        if (bytes == 0 || failed_) return;
        size_t units = HMIUtf16Length(piece, bytes) + (pendingSpace_ ? 1 : 0);
        if (!Reserve(units)) return;
        if (pendingSpace_) text_[length_++] = ' ';
        pendingSpace_ = false;
        if (cdata && !hasCdata_) cdataBegin_ = length_;
        length_ = HMIUtf8ToUtf16(piece, bytes, text_ + length_) - text_;
        if (cdata) hasCdata_ = true, cdataEnd_ = length_;
    }

    bool Reserve(size_t more) {
        if (length_ + more <= capacity_) return true;
        size_t capacity = capacity_ ? capacity_ : 64;
        while (capacity < length_ + more) capacity *= 2;
        void* grown = HMIComRealloc(text_, capacity * sizeof(WCHAR));
        if (!grown) return !(failed_ = true);
        text_ = static_cast<WCHAR*>(grown);
        capacity_ = capacity;
        return true;
    }

    WCHAR* text_ = nullptr;
    size_t length_ = 0, capacity_ = 0;
    size_t cdataBegin_ = 0, cdataEnd_ = 0;
    bool hasCdata_ = false, pendingSpace_ = false, failed_ = false;
};

void AddLeaf(xmlNodePtr node, TextBuilder* text) {
    switch (node->type) {
    case XML_TEXT_NODE: text->Text(node->content); break;
    case XML_CDATA_SECTION_NODE: text->Cdata(node->content); break;
    case XML_ENTITY_REF_NODE: {
        xmlEntityPtr entity = xmlGetDocEntity(node->doc, node->name);
        if (entity && entity->etype == XML_INTERNAL_GENERAL_ENTITY) text->Text(entity->content);
        break;
    }
    default: break;
    }
}

// Walks the subtree without recursion: the depth of a loaded document is bounded, a walk need not be.
void Collect(xmlNodePtr root, TextBuilder* text) {
    xmlNodePtr node = root->children;
    while (node) {
        if (HMISpaceMarks(node) & kSpaceRemovedBefore) text->SpaceRemoved();
        if (node->type == XML_ELEMENT_NODE && node->children) {
            node = node->children;
            continue;
        }
        AddLeaf(node, text);
        if (node->type == XML_ELEMENT_NODE && (HMISpaceMarks(node) & kSpaceRemovedAtEnd)) text->SpaceRemoved();
        while (!node->next) {
            node = node->parent;
            if (!node || node == root) return;
            if (HMISpaceMarks(node) & kSpaceRemovedAtEnd) text->SpaceRemoved();
        }
        node = node->next;
    }
}

// Whether xml:space="preserve" is in scope at the element, read without allocating.
bool SpacePreserved(xmlNodePtr element) {
    for (; element && element->type == XML_ELEMENT_NODE; element = element->parent) {
        for (xmlAttrPtr attribute = element->properties; attribute; attribute = attribute->next) {
            if (!attribute->ns || !xmlStrEqual(attribute->ns->href, XML_XML_NAMESPACE) ||
                !xmlStrEqual(attribute->name, reinterpret_cast<const xmlChar*>("space")))
                continue;
            xmlNodePtr value = attribute->children;
            return value && value->type == XML_TEXT_NODE && !value->next &&
                   xmlStrEqual(value->content, reinterpret_cast<const xmlChar*>("preserve"));
        }
    }
    return false;
}

// One piece of text in a BSTR of its own, its ends trimmed when asked: what TextBuilder makes of a
// single piece, without its buffer.
BSTR PieceText(const xmlChar* piece, bool trim) {
    BSTR text = HMIBstrFromUtf8(piece);
    if (!text || !trim) return text;
    uint32_t begin = 0, end = SysStringLen(text);
    while (begin < end && IsSpace(text[begin])) ++begin;
    while (end > begin && IsSpace(text[end - 1])) --end;
    if (begin > 0) std::memmove(text, text + begin, (end - begin) * sizeof(WCHAR));
    HMIBstrCut(text, end - begin);
    return text;
}

}  // namespace

BSTR HMIElementText(xmlNodePtr elementOrDocument) {
    TextBuilder text;
    Collect(elementOrDocument, &text);
    return text.Finish(!SpacePreserved(elementOrDocument));
}

BSTR HMILeafText(xmlNodePtr node) {
    switch (node->type) {
    case XML_TEXT_NODE: return PieceText(node->content, !SpacePreserved(node->parent));
    case XML_ATTRIBUTE_NODE: {
        TextBuilder text;
        for (xmlNodePtr part = node->children; part; part = part->next) AddLeaf(part, &text);
        return text.Finish(false);
    }
    default: return PieceText(node->content, false);
    }
}
