#include "cascade_writer.h"

#include "cascade_walk.h"
#include "record_fields.h"

namespace hmitool {
namespace {

// Each branch a node of the outline, with the records' fields and the lists no record carries.
class OutlineVisitor final : public CascadeVisitor {
public:
    explicit OutlineVisitor(OutlineWriter& out) : out_(out) {}

    void MediaRecord(const _tagHMIMediaInfo& info) override { WriteMediaInfoFields(out_, info); }
    void Available(const char* field, const std::string& defaultValue,
                   const std::vector<std::string>& values) override {
        out_.ListWithDefault(field, defaultValue, values);
    }
    bool Enter(const Branch& branch) override {
        out_.Open(branch.kind, branch.value, branch.marks);
        return true;
    }
    void Leave() override { out_.Close(); }
    void PurposeRecord(const _tagHMIPrintPurposeInfo& info) override { WritePrintPurposeFields(out_, info); }
    void QualityRecord(const _tagHMIPrintQualityInfo& info) override { WritePrintQualityFields(out_, info); }

private:
    OutlineWriter& out_;
};

}  // namespace

void WriteCascade(OutlineWriter& out, HMIAccess* access, HMIXMLMediaDetail* detail, const std::string& mediaId) {
    out.Open("medium", mediaId, false);
    OutlineVisitor visitor(out);
    WalkCascade(access, detail, visitor);
    out.Close();
}

}  // namespace hmitool
