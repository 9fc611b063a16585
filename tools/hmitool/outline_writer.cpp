#include "outline_writer.h"

#include "text.h"

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
    if (json_) {
        if (!depth_.empty()) {
            out_ += depth_.back() ? ", " : ", \"children\": [";
            depth_.back() = true;
        }
        out_ += "{\"kind\": " + JsonQuote(kind) + ", \"name\": " + JsonQuote(name) +
                ", \"all\": " + (marks.all ? "true" : "false") + (marks.isDefault ? ", \"default\": true" : "") +
                (marks.noBranch ? ", \"branch\": false" : "");
    } else {
        out_ += Indent() + kind + (name.empty() ? "" : " " + name) + (marks.isDefault ? " (default)" : "") +
                (marks.noBranch ? " (no branch)" : "") +
                (marks.all ? "  [all: serves every value without a node of its own]" : "") + "\n";
    }
    depth_.push_back(false);
}

void OutlineWriter::Close() {
    const bool hadChildren = depth_.back();
    depth_.pop_back();
    if (json_) out_ += std::string(hadChildren ? "]" : "") + "}" + (depth_.empty() ? "\n" : "");
}

void OutlineWriter::Scalar(const std::string& field, const std::string& value) {
    out_ += json_ ? ", " + JsonQuote(field) + ": " + JsonQuote(value) : Indent() + "- " + field + ": " + value + "\n";
}

void OutlineWriter::List(const std::string& field, const std::vector<std::string>& values) {
    out_ += json_ ? ", " + JsonQuote(field) + ": " + JsonArray(values)
                  : Indent() + "- " + field + ": " + Joined(values) + "\n";
}

void OutlineWriter::ListWithDefault(const std::string& field, const std::string& defaultValue,
                                    const std::vector<std::string>& values) {
    out_ += json_ ? ", " + JsonQuote(field) + ": {\"default\": " + JsonQuote(defaultValue) +
                        ", \"values\": " + JsonArray(values) + "}"
                  : Indent() + "- " + field + ": " + Joined(values) + " (default " + defaultValue + ")\n";
}

std::string OutlineWriter::JsonArray(const std::vector<std::string>& values) const {
    std::string out = "[";
    for (const std::string& v : values) out += (out.size() > 1 ? ", " : "") + JsonQuote(v);
    return out + "]";
}

}  // namespace hmitool
