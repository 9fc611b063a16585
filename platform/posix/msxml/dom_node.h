// A node object other than the document.
#ifndef HMI_POSIX_MSXML_DOM_NODE_H
#define HMI_POSIX_MSXML_DOM_NODE_H

#include "posix/msxml/node_ops.h"

class DomNode final : public NodeMethods<IXMLDOMNode> {
public:
    explicit DomNode(const NodeContext& context) noexcept;
    ~DomNode() override;
    HRESULT QueryInterface(REFIID riid, void** object) override;

protected:
    NodeContext Context() override { return context_; }

private:
    NodeContext context_;
};

#endif
