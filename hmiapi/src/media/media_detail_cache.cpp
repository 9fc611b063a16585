#include "media/media_detail_cache.h"

#include <memory>
#include <new>

#include "media/media_detail.h"
#include "printerdata/media_info_document.h"
#include "printerdata/pop_header.h"
#include "printerdata/printer_data_read.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"

namespace {

// Loads and parses the medium's document into detail, with COM initialised around this alone.
bool ParseMediumDocument(HMIXMLMediaDetail& detail, HANDLE printer, const WCHAR* documentKey) noexcept {
    HMIComApartment com;
    if (!com.ok()) return false;
    HMIComPtr<IXMLDOMDocument2> document(LoadMediaInfoDocument(printer, documentKey));
    return document && detail.ParseDocument(document.get());
}

}  // namespace

void HMIDestroyMediaDetailDic(HMIXMLMediaDetailDic* cache) noexcept {
    if (!cache) return;
    for (auto& entry : *cache) delete entry.second;
    delete cache;
    HMISettleHeap();
}

HMIXMLMediaDetail* HMIFindOrLoadDetail(HMIXMLMediaDetailDic& cache, const HMIPopHeader& database, HANDLE printer,
                                       const WCHAR* mediaId) noexcept {
    if (!mediaId) return nullptr;
    if (const HMIXMLMediaDetail* cached = cache.Find(mediaId)) return const_cast<HMIXMLMediaDetail*>(cached);
    _tagHMIMediaInfoHeader header;
    if (!database.GetMediaInfoHeader(mediaId, &header)) return nullptr;

    std::unique_ptr<HMIXMLMediaDetail> detail(new (std::nothrow) HMIXMLMediaDetail());
    if (!detail || !detail->SetId(mediaId)) return nullptr;
    WCHAR documentKey[HMI_KEY_NAME_CAPACITY];
    if (!FormatMediumKey(documentKey, header.media_number, HMI_W("HMI"))) return nullptr;
    if (!ParseMediumDocument(*detail, printer, documentKey)) return nullptr;

    if (!cache.Insert(detail->Info().id, detail.get())) return nullptr;
    return detail.release();
}
