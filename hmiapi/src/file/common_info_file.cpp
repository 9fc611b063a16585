#include "common/hmi_decimal.h"
#include "file/file_query.h"
#include "file/file_readers.h"
#include "xml/hmi_xml_document.h"

bool HMIReadCommonInfoFile(const WCHAR* path, _tagHMICommonInfo* info) noexcept {
    if (!info) return false;
    const HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(path));
    if (!document) return false;
    // A failed read leaves the fields of the earlier reads written.
    const auto version = [&](const WCHAR* text) { info->db_format_ver = HMIDecimalToFloat(text); };
    return HMIReadElementText(document.get(), HMI_W("db_format_ver"), version) &&
           HMIReadElementText(document.get(), HMI_W("product_id"),
                              [&](const WCHAR* text) { HMIBoundedCopyFile(info->product_id, text); }) &&
           HMIReadElementText(document.get(), HMI_W("pop-db-time"),
                              [&](const WCHAR* text) { HMIBoundedCopyFile(info->pop_db_time, text); });
}
