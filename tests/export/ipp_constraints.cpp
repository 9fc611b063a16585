#include "export/ipp_constraints.h"

#include <cups/ipp.h>

#include <algorithm>
#include <cstdlib>
#include <set>

namespace exporttest {
namespace {

// Tokens of the ipptool file syntax: words, quoted strings (with backslash escapes), and the single
// characters '{', '}' and ','; '#' starts a comment that runs to the end of the line.
class Tokens {
public:
    explicit Tokens(const std::string& text) : text_(text) {}

    // False at the end of the text.
    bool Next(std::string* token) {
        if (peeked_) {
            *token = peek_;
            peeked_ = false;
            return true;
        }
        return Read(token);
    }
    bool Peek(std::string* token) {
        if (!peeked_ && !Read(&peek_)) return false;
        peeked_ = true;
        *token = peek_;
        return true;
    }
    size_t line() const { return line_; }

private:
    bool Read(std::string* token) {
        token->clear();
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (c == '#') {
                while (at_ < text_.size() && text_[at_] != '\n') ++at_;
            } else if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
                line_ += c == '\n';
                ++at_;
            } else {
                break;
            }
        }
        if (at_ >= text_.size()) return false;
        if (std::string("{},").find(text_[at_]) != std::string::npos) {
            *token = text_[at_++];
            return true;
        }
        char quote = 0;
        for (; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (c == '\\' && at_ + 1 < text_.size()) {
                *token += text_[++at_];
            } else if (quote) {
                if (c == quote) {
                    quote = 0;
                } else {
                    line_ += c == '\n';
                    *token += c;
                }
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '{' || c == '}' || c == ',') {
                break;
            } else {
                *token += c;
            }
        }
        return true;
    }

    const std::string& text_;
    size_t at_ = 0;
    size_t line_ = 1;
    bool peeked_ = false;
    std::string peek_;
};

const std::set<std::string> kOutOfBand = {"admin-define", "delete-attribute", "no-value", "not-settable",
                                          "unknown", "unsupported"};

class Parser {
public:
    explicit Parser(const std::string& text) : tokens_(text) {}

    bool Attributes(std::vector<IppAttribute>* out, std::string* error) {
        std::string word;
        while (tokens_.Next(&word)) {
            if (word == "ATTR") {
                out->emplace_back();
                if (!Attribute(&out->back())) break;
            } else if (word == "GROUP") {
                tokens_.Next(&word);
            } else if (word == "DEFINE") {
                tokens_.Next(&word), tokens_.Next(&word);
            } else {
                fault_ = "unexpected \"" + word + "\"";
                break;
            }
        }
        if (fault_.empty()) return true;
        *error = "line " + std::to_string(tokens_.line()) + ": " + fault_;
        return false;
    }

private:
    bool Attribute(IppAttribute* attribute) {
        if (!tokens_.Next(&attribute->tag) || !tokens_.Next(&attribute->name)) return Fault("ATTR without a name");
        if (kOutOfBand.count(attribute->tag)) return true;
        std::string separator;
        do {
            attribute->values.emplace_back();
            if (!Value(*attribute, &attribute->values.back())) return false;
        } while (tokens_.Peek(&separator) && separator == "," && tokens_.Next(&separator));
        return true;
    }

    bool Value(const IppAttribute& attribute, IppValue* value) {
        std::string token;
        if (attribute.tag == "collection" || attribute.tag == "begCollection") {
            value->collection = true;
            if (!tokens_.Next(&token) || token != "{") return Fault(attribute.name + ": collection without '{'");
            while (tokens_.Next(&token) && token != "}") {
                if (token != "MEMBER") return Fault(attribute.name + ": \"" + token + "\" where MEMBER belongs");
                value->members.emplace_back();
                if (!Attribute(&value->members.back())) return false;
            }
            return token == "}" || Fault(attribute.name + ": collection without '}'");
        }
        if (!tokens_.Next(&token) || token == "," || token == "{" || token == "}") {
            return Fault(attribute.name + ": a value is missing");
        }
        value->text = token;
        const bool number = !token.empty() && token.find_first_not_of("-0123456789") == std::string::npos;
        if (attribute.tag == "enum" && !number) {
            const int code = ippEnumValue(attribute.name.c_str(), token.c_str());
            if (code <= 0) return Fault(attribute.name + ": unknown enum \"" + token + "\"");
            value->text = std::to_string(code);
        }
        return true;
    }

    bool Fault(const std::string& what) {
        fault_ = what;
        return false;
    }

    Tokens tokens_;
    std::string fault_;
};

bool ValueMatches(const IppAttribute& member, const std::string& job) {
    for (const IppValue& value : member.values) {
        if (member.tag == "rangeOfInteger") {
            const size_t dash = value.text.find('-', 1);
            const long low = std::atol(value.text.c_str());
            const long high = dash == std::string::npos ? low : std::atol(value.text.c_str() + dash + 1);
            const long have = std::atol(job.c_str());
            if (have >= low && have <= high) return true;
        } else if (value.text == job) {
            return true;
        }
    }
    return false;
}

bool Matches(const IppAttribute& member, const IppJob& job) {
    if (member.tag == "collection" || member.tag == "begCollection") {
        const auto sub = job.collections.find(member.name);
        if (sub == job.collections.end()) return false;
        return std::any_of(member.values.begin(), member.values.end(),
                           [&](const IppValue& value) { return IppConstraintApplies(value, sub->second); });
    }
    const auto value = job.values.find(member.name);
    return value != job.values.end() && ValueMatches(member, value->second);
}

}  // namespace

bool ParseIppAttributes(const std::string& text, std::vector<IppAttribute>* attributes, std::string* error) {
    return Parser(text).Attributes(attributes, error);
}

const IppAttribute* FindIppAttribute(const std::vector<IppAttribute>& attributes, const std::string& name) {
    for (const IppAttribute& attribute : attributes) {
        if (attribute.name == name) return &attribute;
    }
    return nullptr;
}

std::vector<std::string> IppTexts(const std::vector<IppAttribute>& attributes, const std::string& name) {
    std::vector<std::string> texts;
    if (const IppAttribute* attribute = FindIppAttribute(attributes, name)) {
        for (const IppValue& value : attribute->values) texts.push_back(value.text);
    }
    return texts;
}

IppJob IppJobOf(const IppValue& collection) {
    IppJob job;
    for (const IppAttribute& member : collection.members) {
        if (member.values.empty()) continue;
        if (member.values.front().collection) {
            job.collections[member.name] = IppJobOf(member.values.front());
        } else {
            job.values[member.name] = member.values.front().text;
        }
    }
    return job;
}

bool IppConstraintApplies(const IppValue& constraint, const IppJob& job) {
    for (const IppAttribute& member : constraint.members) {
        if (member.name != "resolver-name" && !Matches(member, job)) return false;
    }
    return true;
}

std::string IppConflict(const IppAttribute& constraints, const IppJob& job) {
    for (const IppValue& constraint : constraints.values) {
        if (!IppConstraintApplies(constraint, job)) continue;
        for (const IppAttribute& member : constraint.members) {
            if (member.name == "resolver-name" && !member.values.empty()) return member.values.front().text;
        }
        return "(no resolver-name)";
    }
    return "";
}

}  // namespace exporttest
