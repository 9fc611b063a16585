// The MSXML DOM subset the library uses, with MSXML's method names and argument order.
#ifndef HMI_POSIX_MSXML_H
#define HMI_POSIX_MSXML_H

#include "posix/com/com.h"

enum DOMNodeType {
    NODE_INVALID = 0,
    NODE_ELEMENT = 1,
    NODE_ATTRIBUTE = 2,
    NODE_TEXT = 3,
    NODE_CDATA_SECTION = 4,
    NODE_ENTITY_REFERENCE = 5,
    NODE_ENTITY = 6,
    NODE_PROCESSING_INSTRUCTION = 7,
    NODE_COMMENT = 8,
    NODE_DOCUMENT = 9,
    NODE_DOCUMENT_TYPE = 10,
    NODE_DOCUMENT_FRAGMENT = 11,
    NODE_NOTATION = 12
};

struct IXMLDOMNodeList;
struct IXMLDOMNamedNodeMap;

struct IXMLDOMNode : IUnknown {
    virtual HRESULT get_nodeName(BSTR* name) = 0;
    virtual HRESULT get_nodeType(DOMNodeType* type) = 0;
    virtual HRESULT get_childNodes(IXMLDOMNodeList** childList) = 0;
    virtual HRESULT get_attributes(IXMLDOMNamedNodeMap** attributeMap) = 0;
    virtual HRESULT get_text(BSTR* text) = 0;
    virtual HRESULT get_baseName(BSTR* nameString) = 0;
    virtual HRESULT get_namespaceURI(BSTR* namespaceURI) = 0;
    virtual HRESULT get_prefix(BSTR* prefixString) = 0;
    virtual HRESULT selectSingleNode(BSTR queryString, IXMLDOMNode** resultNode) = 0;
    virtual HRESULT selectNodes(BSTR queryString, IXMLDOMNodeList** resultList) = 0;
};

struct IXMLDOMNodeList : IUnknown {
    virtual HRESULT get_length(LONG* listLength) = 0;
    virtual HRESULT get_item(LONG index, IXMLDOMNode** listItem) = 0;
};

struct IXMLDOMNamedNodeMap : IUnknown {
    virtual HRESULT get_length(LONG* listLength) = 0;
    virtual HRESULT get_item(LONG index, IXMLDOMNode** listItem) = 0;
};

// Why the last load failed (errorCode 0 after a successful one). Positions are 1-based.
struct IXMLDOMParseError : IUnknown {
    virtual HRESULT get_errorCode(LONG* errorCode) = 0;
    virtual HRESULT get_reason(BSTR* reason) = 0;
    virtual HRESULT get_line(LONG* lineNumber) = 0;
    virtual HRESULT get_linepos(LONG* linePosition) = 0;
};

struct IXMLDOMDocument : IXMLDOMNode {
    virtual HRESULT get_parseError(IXMLDOMParseError** errorObj) = 0;
    virtual HRESULT put_async(VARIANT_BOOL isAsync) = 0;
    virtual HRESULT load(VARIANT xmlSource, VARIANT_BOOL* isSuccessful) = 0;
    virtual HRESULT loadXML(BSTR bstrXML, VARIANT_BOOL* isSuccessful) = 0;
};

struct IXMLDOMDocument2 : IXMLDOMDocument {
    virtual HRESULT setProperty(BSTR name, VARIANT value) = 0;
};

extern const IID IID_IXMLDOMNode;
extern const IID IID_IXMLDOMDocument;
extern const IID IID_IXMLDOMDocument2;
extern const IID IID_IXMLDOMNodeList;
extern const IID IID_IXMLDOMNamedNodeMap;
extern const IID IID_IXMLDOMParseError;

#endif
