#include "file/file_query.h"

bool HMISelectNodeList(const HMIBSTR& query, IXMLDOMNode* context, HMIComPtr<IXMLDOMNodeList>& list,
                       LONG* length) noexcept {
    return SUCCEEDED(context->selectNodes(query.str, list.put())) && list && SUCCEEDED(list->get_length(length));
}
