// A tree of nodes with named fields, written as an indented outline or as JSON.
#ifndef HMITOOL_OUTLINE_WRITER_H
#define HMITOOL_OUTLINE_WRITER_H

#include <string>
#include <vector>

#include "json_output.h"

namespace hmitool {

// How a node was reached. all: the node serves every value without a node of its own; isDefault: the
// value is its level's default; noBranch: the value has no node at all, not even an "all" one.
struct NodeMarks {
    bool all = false;
    bool isDefault = false;
    bool noBranch = false;
};

class OutlineWriter {
public:
    explicit OutlineWriter(bool json) : json_(json) {}

    // A node: "kind name" in the outline; {"kind": ..., "name": ..., "all": ...} in JSON, with
    // "default": true and "branch": false only when so marked, and its child nodes in "children".
    void Open(const std::string& kind, const std::string& name, NodeMarks marks);
    void Open(const std::string& kind, const std::string& name, bool all) { Open(kind, name, NodeMarks{all}); }
    void Close();

    void Scalar(const std::string& field, const std::string& value);
    void List(const std::string& field, const std::vector<std::string>& values);
    void ListWithDefault(const std::string& field, const std::string& defaultValue,
                         const std::vector<std::string>& values);

    // The text written; every node must be closed.
    std::string str() const { return json_ ? JsonText(root_) : text_; }

private:
    std::string Indent() const { return std::string(2 * open_.size(), ' '); }

    bool json_;
    std::string text_;
    Json root_;
    std::vector<Json*> open_;  // the open nodes, innermost last
};

}  // namespace hmitool

#endif
