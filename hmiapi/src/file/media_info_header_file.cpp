#include <string_view>

#include "file/file_query.h"
#include "file/file_readers.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"

namespace {

// Visible is exactly this text, compared unit by unit.
constexpr WCHAR kOn[] = HMI_W("ON");

}  // namespace

bool HMIReadMediaInfoHeaderFile(const WCHAR* path, const WCHAR* mediaId, _tagHMIMediaInfoHeader* header) noexcept {
    if (!path || !mediaId || !header) return false;
    const HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(path));
    if (!document) return false;
    // The id stands in the query verbatim: one holding a double quote makes the query invalid.
    HMIBSTR query;
    HMIComPtr<IXMLDOMNode> medium;
    if (!HMIFormatQuery(query, HMI_W(".//%s:%s[@%s=\"%s\"]"), HMI_MEDIA_PREFIX, HMI_W("papertype_info"),
                        HMI_W("id"), mediaId) ||
        FAILED(document->selectSingleNode(query.str, medium.put())) || !medium) {
        return false;
    }
    HMIBoundedCopyFile(header->id, mediaId);
    header->media_number = 0;
    header->valid = 4;
    const auto visible = [&](const WCHAR* text) { header->visible = std::basic_string_view<WCHAR>(text) == kOn; };
    return HMIReadElementText(medium.get(), HMI_W("visible"), visible) &&
           HMIReadElementText(medium.get(), HMI_W("checksum"),
                              [&](const WCHAR* text) { HMIBoundedCopyFile(header->checksum, text); });
}
