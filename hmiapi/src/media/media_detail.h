// HMIXMLMediaDetail: the root of a medium's option tree, built from the first "medium" element of a
// media-information document. The tree keeps no DOM object.
#ifndef HMI_MEDIA_DETAIL_H
#define HMI_MEDIA_DETAIL_H

#include "media/media_color_mode.h"
#include "media/media_dictionaries.h"
#include "media/xml_rejection.h"

class HMIXMLMediaDetail
    : public HMIXMLMediaBranch<_tagHMIMediaInfo, HMIXMLMediaColorMode, HMIXMLMediaColorModeDic> {
public:
    HMIXMLMediaDetail() noexcept : HMIXMLMediaBranch(nullptr) {}

    const HMIXMLMediaColorModeDic& ColorModes() const { return dictionary; }

    // The media id under which the medium was requested, written before the parse; false (the id
    // left empty) when it is null or longer than 64 units.
    bool SetId(const WCHAR* mediaId) noexcept;

    // Builds the tree from the document's first "medium" element in no namespace, then keeps of it only
    // what the queries read; called once on a fresh detail. An observer, when given, learns why the
    // medium is rejected.
    bool ParseDocument(IXMLDOMDocument2* document, HMIXMLRejectionObserver* observer = nullptr) noexcept;

protected:
    bool OnParsed() override;
};

#endif
