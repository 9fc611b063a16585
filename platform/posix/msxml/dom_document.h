// The document object: a node that loads, and holds the selection properties.
#ifndef HMI_POSIX_MSXML_DOM_DOCUMENT_H
#define HMI_POSIX_MSXML_DOM_DOCUMENT_H

#include "posix/msxml/node_ops.h"
#include "posix/msxml/parse.h"

class DomDocument final : public NodeMethods<IXMLDOMDocument2> {
public:
    // Hands out the requested interface of a new, empty document.
    static HRESULT Create(DomVersion version, REFIID riid, void** object);

    DomDocument(DomTree* tree, DomVersion version) noexcept : tree_(tree), version_(version) {}
    ~DomDocument() override;

    HRESULT QueryInterface(REFIID riid, void** object) override;
    HRESULT get_parseError(IXMLDOMParseError** errorObj) override;
    HRESULT put_async(VARIANT_BOOL isAsync) override;
    HRESULT load(VARIANT source, VARIANT_BOOL* isSuccessful) override;
    HRESULT loadXML(BSTR text, VARIANT_BOOL* isSuccessful) override;
    HRESULT setProperty(BSTR name, VARIANT value) override;

protected:
    NodeContext Context() override;

private:
    // Installs the parsed document (of textBytes of UTF-8), or an empty one when parsing failed, and
    // answers as load does.
    HRESULT Finish(xmlDocPtr doc, size_t textBytes, VARIANT_BOOL* isSuccessful);

    DomTree* tree_;
    DomVersion version_;
    SelectionNamespaces namespaces_;
    ParseFailure failure_;
};

#endif
