// Documents for the media-tree tests: loading text through the library's DOM configuration and
// building trees from it.
#ifndef HMI_TEST_MEDIA_SUPPORT_H
#define HMI_TEST_MEDIA_SUPPORT_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "media/media_detail.h"
#include "platform/platform.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"

namespace mediatest {

using WString = std::basic_string<WCHAR>;

inline std::string Ascii(const WCHAR* text) {
    std::string out;
    for (; text && *text; ++text) out += static_cast<char>(*text < 0x80 ? *text : '?');
    return text ? out : std::string("(null)");
}

inline const WCHAR* kNamespace = HMI_MEDIA_NAMESPACE;

// A media-information document whose one medium holds body.
inline WString MediumDocument(const WString& body) {
    return WString(HMI_W("<iv:mediainfo xmlns:iv=\"")) + kNamespace + HMI_W("\"><medium>") + body +
           HMI_W("</medium></iv:mediainfo>");
}

struct Rejection {
    std::string path;
    std::string reason;
};

class RecordingObserver final : public HMIXMLRejectionObserver {
public:
    void OnRejected(const WCHAR* path, const WCHAR* reason) override {
        rejections.push_back({Ascii(path), Ascii(reason)});
    }
    std::vector<Rejection> rejections;
};

class MediaDocumentTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(com.ok()); }

    // Loads text into document; false when the DOM refuses it.
    bool Load(const WString& text) {
        *document.put() = HMILoadXMLText(text.c_str());
        return static_cast<bool>(document);
    }

    // The tree of text's first medium, or null when the document does not load or is rejected.
    std::unique_ptr<HMIXMLMediaDetail> Build(const WString& text, HMIXMLRejectionObserver* observer = nullptr) {
        if (!Load(text)) {
            ADD_FAILURE() << "document does not load: " << Ascii(text.c_str());
            return nullptr;
        }
        auto detail = std::make_unique<HMIXMLMediaDetail>();
        if (!detail->ParseDocument(document.get(), observer)) return nullptr;
        return detail;
    }

    std::unique_ptr<HMIXMLMediaDetail> BuildMedium(const WString& body) { return Build(MediumDocument(body)); }

    // The document element of text as a plain node with no registry.
    std::unique_ptr<HMIXMLNode> ParseElement(const WString& text) {
        if (!Load(text)) return nullptr;
        HMIComPtr<IXMLDOMNode> root;
        HMIBSTR query;
        if (!query.assign(HMI_W("/*")) || FAILED(document->selectSingleNode(query.str, root.put())) || !root) {
            return nullptr;
        }
        auto node = std::make_unique<HMIXMLNode>(nullptr);
        if (!node->Parse(root.get(), nullptr)) return nullptr;
        return node;
    }

    HMIComApartment com;
    HMIComPtr<IXMLDOMDocument2> document;
};

}  // namespace mediatest

#endif
