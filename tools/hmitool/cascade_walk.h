// A medium's option cascade as a driver walks it through the exports. Each filtered level has a list
// of available values below the node above it and a filter that gives, for a value, the value's own
// node, else the level's "all" node, else null. Print qualities have no filter: their record query
// falls back to the variant's "all" node in the same way.
#ifndef HMITOOL_CASCADE_WALK_H
#define HMITOOL_CASCADE_WALK_H

#include <cstdint>
#include <string>
#include <vector>

#include "media_source.h"
#include "outline_writer.h"
#include "record_fields.h"
#include "xrvhmi.h"

namespace hmitool {

// What a filter gives for one value: the node, and whether it is the level's "all" node (told by
// identity: the node the filter gives for "all" itself).
template <typename Node>
struct Reached {
    Node* node = nullptr;
    bool all = false;
};

// One filtered level and the exports that answer it.
template <typename Parent, typename Node, typename E, size_t N>
struct FilterLevel {
    using Value = E;
    using List = HMITagListWithDefault<E, N>;

    const char* kind;        // the level's element name
    const char* listField;   // its list's element name; null when a record above carries the list
    const char* filterName;  // the filter export, for messages
    const HMITagIDConverter<E>* words;
    E all;
    BOOL (*available)(HMIAccess*, Parent*, List*);
    Node* (*filter)(HMIAccess*, Parent*, E);

    Reached<Node> Reach(HMIAccess* access, Parent* parent, E value) const {
        Node* const node = filter(access, parent, value);
        return {node, node && node == filter(access, parent, all)};
    }
};

extern const FilterLevel<HMIXMLMediaDetail, HMIXMLMediaColorMode, tagHMI_COLORMODE, 2> kColorModeLevel;
extern const FilterLevel<HMIXMLMediaColorMode, HMIXMLMediaBorderlessMode, _tagHMI_ONOFF, 2> kBorderlessLevel;
extern const FilterLevel<HMIXMLMediaBorderlessMode, HMIXMLMediaPrintPurpose, tagHMI_PRINTPURPOSE, 3>
    kPrintPurposeLevel;

// The record of a quality in one variant, and whether the variant's "all" node gave it: asked for
// "all", or a record whose type is not the value asked.
struct QualityReached {
    bool found = false;
    bool all = false;
    _tagHMIPrintQualityInfo info{};
};
QualityReached ReachQuality(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant,
                            tagHMI_PRINTQUALITY value);

// One value asked at one level, and what the exports gave for it.
struct Branch {
    const char* kind;   // the level's element name (a quality's: its variant's)
    int level;          // 1 colour mode, 2 borderless, 3 print purpose, 4 print quality
    std::string value;  // the value asked, as its keyword
    NodeMarks marks;    // all: served by the level's "all" node; noBranch: served by nothing
    // The node reached, or for a print quality the print purpose that holds it; with kind and
    // nodeName it tells a node reached by several values from distinct ones.
    const void* node;
    std::string nodeName;  // the node's own value: the value asked, "all", or a quality record's type
};

// Told each branch of the walk in depth-first order.
class CascadeVisitor {
public:
    // A medium's record, before its colour modes.
    virtual void MediaRecord(const _tagHMIMediaInfo&) {}
    // A level's list of values that no record carries (borderless settings and print purposes), before
    // the level's branches.
    virtual void Available(const char* /*field*/, const std::string& /*defaultValue*/,
                           const std::vector<std::string>& /*values*/) {}
    // Whether to walk below the branch; every Enter is followed by one Leave.
    virtual bool Enter(const Branch& branch) = 0;
    virtual void Leave() = 0;
    // A print purpose's record, before its qualities; a quality's record, inside its branch.
    virtual void PurposeRecord(const _tagHMIPrintPurposeInfo&) {}
    virtual void QualityRecord(const _tagHMIPrintQualityInfo&) {}

protected:
    ~CascadeVisitor() = default;
};

// Asks, at each level, every value of the available list and its default (nothing for an empty list,
// whose default means nothing).
void WalkCascade(HMIAccess* access, HMIXMLMediaDetail* detail, CascadeVisitor& visitor);

// The medium's tree; null after printing why the library does not load it, with the exit code in *code.
Detail LoadMedium(const MediaSource& source, const std::string& id, int* code);

}  // namespace hmitool

#endif
