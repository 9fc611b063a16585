#include "database_entries.h"

#include "file/file_query.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_media_namespace.h"

namespace hmitool {
namespace {

WString ElementText(IXMLDOMNode* context, const WCHAR* name) {
    const HMIHeapString text = HMITextOf(HMIGetElementText, name, context);
    return text ? WString(text.get()) : WString();
}

WString AttributeText(IXMLDOMNode* node, const WCHAR* name) {
    const HMIHeapString text = HMITextOf(HMIGetAttributeText, name, node);
    return text ? WString(text.get()) : WString();
}

}  // namespace

bool ReadDatabaseEntries(const std::string& path, std::vector<DatabaseEntry>* entries, WString (&common)[3]) {
    HMIComApartment com;
    HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(Widen(path).c_str()));
    HMIBSTR query;
    HMIComPtr<IXMLDOMNodeList> items;
    LONG length = 0;
    if (!com.ok() || !document || !HMIFormatQuery(query, HMI_W(".//%s:papertype_info"), HMI_MEDIA_PREFIX) ||
        FAILED(document->selectNodes(query.str, items.put())) || !items || FAILED(items->get_length(&length))) {
        return false;
    }
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(items->get_item(i, item.put())) || !item) return false;
        entries->push_back({AttributeText(item.get(), HMI_W("id")), ElementText(item.get(), HMI_W("media_number")),
                            ElementText(item.get(), HMI_W("valid")), ElementText(item.get(), HMI_W("visible")),
                            ElementText(item.get(), HMI_W("checksum"))});
    }
    common[0] = ElementText(document.get(), HMI_W("db_format_ver"));
    common[1] = ElementText(document.get(), HMI_W("product_id"));
    common[2] = ElementText(document.get(), HMI_W("pop-db-time"));
    return true;
}

}  // namespace hmitool
