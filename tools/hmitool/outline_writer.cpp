#include "outline_writer.h"

namespace hmitool {
namespace {

std::string Joined(const std::vector<std::string>& values) {
    if (values.empty()) return "(none)";
    std::string out;
    for (const std::string& v : values) out += (out.empty() ? "" : ", ") + v;
    return out;
}

}  // namespace

void OutlineWriter::Open(const std::string& kind, const std::string& name, NodeMarks marks) {
    if (!json_) {
        text_ += Indent() + kind + (name.empty() ? "" : " " + name) + (marks.isDefault ? " (default)" : "") +
                 (marks.noBranch ? " (no branch)" : "") +
                 (marks.all ? "  [all: serves every value without a node of its own]" : "") + "\n";
        open_.push_back(nullptr);
        return;
    }
    Json node = {{"kind", kind}, {"name", name}, {"all", marks.all}};
    if (marks.isDefault) node["default"] = true;
    if (marks.noBranch) node["branch"] = false;
    if (open_.empty()) {
        root_ = std::move(node);
        open_.push_back(&root_);
    } else {
        Json& children = (*open_.back())["children"];
        children.push_back(std::move(node));
        open_.push_back(&children.back());
    }
}

void OutlineWriter::Close() { open_.pop_back(); }

void OutlineWriter::Scalar(const std::string& field, const std::string& value) {
    if (json_) (*open_.back())[field] = value;
    else text_ += Indent() + "- " + field + ": " + value + "\n";
}

void OutlineWriter::List(const std::string& field, const std::vector<std::string>& values) {
    if (json_) (*open_.back())[field] = values;
    else text_ += Indent() + "- " + field + ": " + Joined(values) + "\n";
}

void OutlineWriter::ListWithDefault(const std::string& field, const std::string& defaultValue,
                                    const std::vector<std::string>& values) {
    if (json_) (*open_.back())[field] = {{"default", defaultValue}, {"values", values}};
    else text_ += Indent() + "- " + field + ": " + Joined(values) + " (default " + defaultValue + ")\n";
}

}  // namespace hmitool
