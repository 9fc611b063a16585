// What the level classes of a medium's tree share: a zero-filled record, and for the levels above the
// print qualities a dictionary of the next level's nodes.
#ifndef HMI_MEDIA_LEVEL_H
#define HMI_MEDIA_LEVEL_H

#include <cstring>
#include <new>

#include "media/hmi_xml_node.h"
#include "media/xml_rejection.h"

template <typename Record>
class HMIXMLMediaLevel : public HMIXMLNode {
public:
    const Record& Info() const { return info; }

protected:
    // A level's children are its value elements, read by its OnParsed: none stays unless a subclass
    // files it.
    bool Keeps(const HMIXMLNode*) const noexcept override { return false; }

    explicit HMIXMLMediaLevel(HMIXMLNode* parent) noexcept : HMIXMLNode(parent) {
        std::memset(&info, 0, sizeof info);
    }

    Record info;
};

// Files child in dictionary under its type when it is a Child (the first node filed under a type
// stays); false for any other node. An entry that cannot be allocated sets *filingFailed.
template <typename Child, typename Dictionary>
bool HMIFileChild(HMIXMLNode* child, Dictionary& dictionary, bool* filingFailed) {
    const Child* typed = dynamic_cast<const Child*>(child);
    if (!typed) return false;
    if (!dictionary.Insert(typed->Info().type, typed)) *filingFailed = true;
    return true;
}

// Whether child is the node that dictionary files under its type: the one node a query can reach.
template <typename Child, typename Dictionary>
bool HMIFiled(const HMIXMLNode* child, const Dictionary& dictionary) noexcept {
    const Child* typed = dynamic_cast<const Child*>(child);
    return typed && dictionary.Find(typed->Info().type) == typed;
}

template <typename Record, typename Child, typename Dictionary>
class HMIXMLMediaBranch : public HMIXMLMediaLevel<Record> {
public:
    ~HMIXMLMediaBranch() override { dictionary.clear(); }

protected:
    using HMIXMLMediaLevel<Record>::HMIXMLMediaLevel;

    void OnAddChild(HMIXMLNode* child) override { HMIFileChild<Child>(child, dictionary, &filingFailed); }
    bool Keeps(const HMIXMLNode* child) const noexcept override { return HMIFiled<Child>(child, dictionary); }

    // A tree with a child missing from its dictionary would answer wrongly: the build fails instead.
    bool ChildrenFiled() const noexcept {
        return !filingFailed || HMIXMLReject(this, {HMI_W("out of memory filing a child")});
    }

    Dictionary dictionary;
    bool filingFailed = false;
};

// The registry's create function of a level class: a fresh node under parent, or null.
template <typename Level>
HMIXMLNode* HMICreateLevel(HMIXMLNode* parent) noexcept {
    return new (std::nothrow) Level(parent);
}

#endif
