#include <memory>
#include <new>

#include "file/file_readers.h"
#include "media/media_detail.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_xml_document.h"

namespace {

bool LoadAndParse(HMIXMLMediaDetail& detail, const WCHAR* path) {
    HMIComApartment com;
    if (!com.ok()) return false;
    const HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(path));
    return document && detail.ParseDocument(document.get());
}

}  // namespace

HMIXMLMediaDetail* HMIReadMediaDetailFile(const WCHAR* mediaId, const WCHAR* path) noexcept {
    if (!mediaId || !path) return nullptr;
    std::unique_ptr<HMIXMLMediaDetail> detail(new (std::nothrow) HMIXMLMediaDetail());
    if (!detail || !detail->SetId(mediaId) || !LoadAndParse(*detail, path)) return nullptr;
    return detail.release();
}
