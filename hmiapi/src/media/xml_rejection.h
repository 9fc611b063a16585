// Why a tree could not be built, and what in an accepted one looks like a mistake: an optional
// observer for tools. The library's entry points never install one, so a rejection or a doubt costs
// them nothing beyond a thread-local read.
#ifndef HMI_MEDIA_XML_REJECTION_H
#define HMI_MEDIA_XML_REJECTION_H

#include <cstddef>
#include <initializer_list>

#include "platform/platform.h"

class HMIXMLNode;

class HMIXMLRejectionObserver {
public:
    // path: the failing element from the root, e.g. "medium/printcolormode[2]/borderlessprint[1]";
    // reason: one line. Called once per failed build, for the first failure.
    virtual void OnRejected(const WCHAR* path, const WCHAR* reason) = 0;
    // path: the value element or attribute, e.g. "medium/printcolormode[1]/availableborderlessprint";
    // finding: something the build accepts that is probably a mistake (an unknown keyword, a default
    // outside its list, a flag that is not hexadecimal). Called for each; ignored unless overridden.
    virtual void OnDoubtful(const WCHAR* /*path*/, const WCHAR* /*finding*/) {}

protected:
    ~HMIXMLRejectionObserver() = default;
};

// Installs an observer on the calling thread for its lifetime.
class HMIXMLRejectionScope {
public:
    explicit HMIXMLRejectionScope(HMIXMLRejectionObserver* observer) noexcept;
    ~HMIXMLRejectionScope();
    HMIXMLRejectionScope(const HMIXMLRejectionScope&) = delete;
    HMIXMLRejectionScope& operator=(const HMIXMLRejectionScope&) = delete;

private:
    HMIXMLRejectionObserver* previous;
};

// Tells the installed observer, if any, that node is rejected for the reason made of the parts
// joined; returns false so that a failing parse step can return its result.
bool HMIXMLReject(const HMIXMLNode* node, std::initializer_list<const WCHAR*> reason) noexcept;

// Whether an observer is installed on the calling thread: doubts are looked for only then.
bool HMIXMLObserving() noexcept;

// Tells the installed observer, if any, that the value element (or with attribute set, the attribute)
// `name` of level holds what the parts joined say.
void HMIXMLDoubt(const HMIXMLNode* level, const WCHAR* name, std::initializer_list<const WCHAR*> finding,
                 bool attribute = false) noexcept;

// "NAME holds HELD values, capacity CAPACITY".
bool HMIXMLRejectOverflow(const HMIXMLNode* node, const WCHAR* listName, size_t held, size_t capacity) noexcept;

#endif
