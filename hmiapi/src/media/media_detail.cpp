#include "media/media_detail.h"

#include "common/hmi_string.h"
#include "media/media_child_registry.h"
#include "media/media_level_fields.h"
#include "media/tag_vocabulary.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"

bool HMIXMLMediaDetail::SetId(const WCHAR* mediaId) noexcept { return HMIBoundedCopy(info.id, mediaId); }

bool HMIXMLMediaDetail::ParseDocument(IXMLDOMDocument2* document, HMIXMLRejectionObserver* observer) noexcept {
    HMIXMLRejectionScope scope(observer);
    if (!document) return false;
    HMIBSTR query;
    if (!query.assign(HMI_W(".//medium"))) return HMIXMLReject(this, {HMI_W("out of memory")});
    HMIComPtr<IXMLDOMNode> medium;
    if (FAILED(document->selectSingleNode(query.str, medium.put())) || !medium) {
        return HMIXMLReject(this, {HMI_W("no \"medium\" element in no namespace")});
    }
    if (!Parse(medium.get(), &HMIMediaChildRegistry)) return false;
    Release();
    return true;
}

bool HMIXMLMediaDetail::OnParsed() {
    if (!ChildrenFiled()) return false;
    HMIReadHexValue(*this, HMI_W("operationflag"), &info.operationflag);
    HMIReadTextValue(*this, HMI_W("format_version"), info.format_version);
    if (!FindChild(HMI_W("format_version"))) HMIXMLDoubt(this, HMI_W("format_version"), {HMI_W("missing")});
    HMIReadKeywordValue(*this, HMI_W("medium_category"), HMIMediaCategoryConverter, &info.medium_category);
    return HMIReadListValue(*this, HMI_W("unsuported_papersize"), HMIPaperSizeConverter, &info.unsuported_papersize) &&
           HMIReadPrintAreaValue(*this, &info.printarea) &&
           HMIReadListValue(*this, HMI_W("locale"), HMILocaleConverter, &info.locale) &&
           HMIReadListValue(*this, HMI_W("bk_ink_type"), HMIBkInkTypeConverter, &info.bk_ink_type) &&
           HMIReadListValue(*this, HMI_W("availableinputbinid"), HMIInputBinConverter, &info.availableinputbinid) &&
           HMIReadListValue(*this, HMI_W("availableprintcolormode"), HMIColorModeConverter,
                            &info.availableprintcolormode);
}
