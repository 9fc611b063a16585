#include "media/xml_rejection.h"

#include <new>
#include <string>

#include "media/hmi_xml_node.h"

namespace {

using WString = std::basic_string<WCHAR>;

thread_local HMIXMLRejectionObserver* currentObserver = nullptr;

WString Decimal(size_t n) {
    WString digits;
    do {
        digits.insert(digits.begin(), static_cast<WCHAR>('0' + n % 10));
        n /= 10;
    } while (n);
    return digits;
}

// The failing node and its ancestors are still being parsed, so none of them is among its parent's
// children yet: its position among same-named siblings is one past those already added.
WString PathOf(const HMIXMLNode* node) {
    WString path;
    for (; node; node = node->Parent()) {
        WString step = node->Name() ? node->Name() : node->Parent() ? HMI_W("?") : HMI_W("");
        if (const HMIXMLNode* parent = node->Parent()) {
            const size_t before = parent->CountChildren(node->Name());
            step += HMI_W("[") + Decimal(before + 1) + HMI_W("]");
        }
        path.insert(0, path.empty() ? step : step + HMI_W("/"));
    }
    return path;
}

void Report(const HMIXMLNode* node, const WString& reason) {
    currentObserver->OnRejected(PathOf(node).c_str(), reason.c_str());
}

WString Joined(std::initializer_list<const WCHAR*> parts) {
    WString text;
    for (const WCHAR* part : parts) text += part ? part : HMI_W("");
    return text;
}

}  // namespace

HMIXMLRejectionScope::HMIXMLRejectionScope(HMIXMLRejectionObserver* observer) noexcept
    : previous(currentObserver) {
    currentObserver = observer;
}

HMIXMLRejectionScope::~HMIXMLRejectionScope() { currentObserver = previous; }

bool HMIXMLReject(const HMIXMLNode* node, std::initializer_list<const WCHAR*> reason) noexcept {
    if (!currentObserver) return false;
    try {
        Report(node, Joined(reason));
    } catch (const std::bad_alloc&) {
        // The explanation is optional; the rejection stands without it.
    }
    return false;
}

bool HMIXMLObserving() noexcept { return currentObserver != nullptr; }

void HMIXMLDoubt(const HMIXMLNode* level, const WCHAR* name, std::initializer_list<const WCHAR*> finding,
                 bool attribute) noexcept {
    if (!currentObserver) return;
    try {
        const WString path = PathOf(level) + (attribute ? HMI_W("/@") : HMI_W("/")) + name;
        currentObserver->OnDoubtful(path.c_str(), Joined(finding).c_str());
    } catch (const std::bad_alloc&) {
        // A doubt is only advice.
    }
}

bool HMIXMLRejectOverflow(const HMIXMLNode* node, const WCHAR* listName, size_t held, size_t capacity) noexcept {
    if (!currentObserver) return false;
    try {
        Report(node, WString(listName) + HMI_W(" holds ") + Decimal(held) + HMI_W(" values, capacity ") +
                         Decimal(capacity));
    } catch (const std::bad_alloc&) {
        // As above.
    }
    return false;
}
