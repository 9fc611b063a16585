// Printer attributes in the ipptool ATTR syntax (what `ippeveprinter -a` reads), and the rule by which
// job-constraints-supported forbids a job: a constraint applies when each of its members other than
// resolver-name matches the job; a member with several values matches when the job's value is one of
// them, a collection member when each of its own members matches the job's collection.
#ifndef HMI_TESTS_EXPORT_IPP_CONSTRAINTS_H
#define HMI_TESTS_EXPORT_IPP_CONSTRAINTS_H

#include <map>
#include <string>
#include <vector>

namespace exporttest {

struct IppAttribute;

// One value: its text (an enum given by keyword is held as its number), or a collection's members.
struct IppValue {
    std::string text;
    bool collection = false;
    std::vector<IppAttribute> members;
};

struct IppAttribute {
    std::string tag;   // "keyword", "integer", "collection", ...
    std::string name;
    std::vector<IppValue> values;
};

// The ATTR statements of text (GROUP, DEFINE and comments are skipped); false with the line at fault.
bool ParseIppAttributes(const std::string& text, std::vector<IppAttribute>* attributes, std::string* error);

const IppAttribute* FindIppAttribute(const std::vector<IppAttribute>& attributes, const std::string& name);
// The texts of an attribute's values; empty for a missing attribute.
std::vector<std::string> IppTexts(const std::vector<IppAttribute>& attributes, const std::string& name);

// A job's attributes: values by name, and collections (media-col, media-size) by name.
struct IppJob {
    std::map<std::string, std::string> values;
    std::map<std::string, IppJob> collections;
};

// A collection value as a job's collection (nested collections included).
IppJob IppJobOf(const IppValue& collection);

// Whether the collection's members (resolver-name aside) all match the job.
bool IppConstraintApplies(const IppValue& constraint, const IppJob& job);
// The resolver-name of the first constraint (a job-constraints-supported value) that applies; empty
// when none does.
std::string IppConflict(const IppAttribute& constraints, const IppJob& job);

}  // namespace exporttest

#endif
