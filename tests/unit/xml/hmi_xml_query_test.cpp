#include "xml/hmi_xml_query.h"

#include "xml_test_support.h"

namespace {

// What the queries answer is checked through the File readers (tests/api); here only their failures.
class XmlQueryTest : public hmitest::XmlTest {};

// Where an allocation failure is absorbed (the 6.0 class failing over to the 3.0 one), the document is whole.
TEST_F(XmlQueryTest, AllocationFailureAnswersFalseWithoutLeak) {
    EXPECT_GE(hmitest::LoadAndQueryUnderEachFailure([] {}), 3) << "the namespace binding, the query and the result";
}

}  // namespace
