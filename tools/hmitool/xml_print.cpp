#include "xml_print.h"

#include "text.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"

namespace hmitool {
namespace {

constexpr int kMaxDepth = 512;

std::string Escape(const std::string& text, bool attribute) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += attribute ? "&quot;" : "\""; break;
            default: out.push_back(c);
        }
    }
    return out;
}

bool Name(IXMLDOMNode* node, std::string* name) {
    HMIBSTR text;
    if (FAILED(node->get_nodeName(text.put()))) return false;
    *name = Narrow(text.str);
    return true;
}

bool Text(IXMLDOMNode* node, std::string* value) {
    HMIBSTR text;
    if (FAILED(node->get_text(text.put()))) return false;
    *value = Narrow(text.str);
    return true;
}

bool Attributes(IXMLDOMNode* node, std::string* out) {
    HMIComPtr<IXMLDOMNamedNodeMap> map;
    if (FAILED(node->get_attributes(map.put())) || !map) return true;
    LONG length = 0;
    if (FAILED(map->get_length(&length))) return false;
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> attribute;
        std::string name, value;
        if (FAILED(map->get_item(i, attribute.put())) || !attribute || !Name(attribute.get(), &name) ||
            !Text(attribute.get(), &value)) {
            return false;
        }
        *out += " " + name + "=\"" + Escape(value, true) + "\"";
    }
    return true;
}

bool Print(IXMLDOMNode* node, int depth, std::string* out);

// Children on lines of their own, or a lone text child inline.
bool Children(IXMLDOMNode* node, int depth, const std::string& name, std::string* out) {
    HMIComPtr<IXMLDOMNodeList> children;
    LONG length = 0;
    if (FAILED(node->get_childNodes(children.put())) || !children || FAILED(children->get_length(&length))) {
        return false;
    }
    if (length == 0) {
        *out += "/>\n";
        return true;
    }
    HMIComPtr<IXMLDOMNode> first;
    DOMNodeType type = NODE_INVALID;
    if (length == 1 && SUCCEEDED(children->get_item(0, first.put())) && first &&
        SUCCEEDED(first->get_nodeType(&type)) && type == NODE_TEXT) {
        std::string text;
        if (!Text(first.get(), &text)) return false;
        *out += ">" + Escape(text, false) + "</" + name + ">\n";
        return true;
    }
    *out += ">\n";
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> child;
        if (FAILED(children->get_item(i, child.put())) || !child || !Print(child.get(), depth + 1, out)) return false;
    }
    *out += std::string(2 * depth, ' ') + "</" + name + ">\n";
    return true;
}

bool Print(IXMLDOMNode* node, int depth, std::string* out) {
    if (depth > kMaxDepth) return false;
    DOMNodeType type = NODE_INVALID;
    if (FAILED(node->get_nodeType(&type))) return false;
    const std::string indent(2 * depth, ' ');
    std::string text;
    switch (type) {
        case NODE_ELEMENT: {
            std::string name;
            if (!Name(node, &name)) return false;
            *out += indent + "<" + name;
            return Attributes(node, out) && Children(node, depth, name, out);
        }
        case NODE_TEXT:
            if (!Text(node, &text)) return false;
            *out += indent + Escape(text, false) + "\n";
            return true;
        case NODE_CDATA_SECTION:
            if (!Text(node, &text)) return false;
            *out += indent + "<![CDATA[" + text + "]]>\n";
            return true;
        case NODE_COMMENT:
            if (!Text(node, &text)) return false;
            *out += indent + "<!--" + text + "-->\n";
            return true;
        case NODE_DOCUMENT: {
            HMIComPtr<IXMLDOMNodeList> children;
            LONG length = 0;
            if (FAILED(node->get_childNodes(children.put())) || !children || FAILED(children->get_length(&length))) {
                return false;
            }
            for (LONG i = 0; i < length; ++i) {
                HMIComPtr<IXMLDOMNode> child;
                if (FAILED(children->get_item(i, child.put())) || !child || !Print(child.get(), depth, out)) {
                    return false;
                }
            }
            return true;
        }
        default:  // the XML declaration and other processing instructions
            return true;
    }
}

}  // namespace

bool PrintXml(IXMLDOMNode* node, std::string* out) { return node && Print(node, 0, out); }

}  // namespace hmitool
