#include "tests/transcript/stockcheck/check_script.h"

// Only a part that exists can be counted.
namespace tallyra::stockcheck_test {
namespace {

class CheckDetailPart : public CheckStage {
 protected:
  Outcome insert() {
    const Object detail = stage.client("CCheckDetail");
    Value check = "S1", part = "P1";
    return outcome_of(detail,
                      detail.call("Insert", ref(check), ref(part), ref(fields.names), ref(fields.values)));
  }
};
TALLYRA_ON_EVERY_KIND(CheckDetailPart);

const std::string part_query = "Select PARTNO from PARTS WHERE PARTS.PARTNO='P1'";
const std::string key_query = "Select * From STKCHECKDT Where CHECKNO='S1' And PartNo='P1' ";

TEST_P(CheckDetailPart, AnUnknownPartIsRefusedWithTheNumberAndTheTextThatClientsKnow) {
  stage.set("CanInsert", 1).finds_nothing(part_query).finds(key_query, {{"CHECKNO"}, {{"S1"}}});
  EXPECT_EQ(insert(), (Outcome{0, 10000025, "text of Msg20000005"}));
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                part_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Close\n");
}

}  // namespace
}  // namespace tallyra::stockcheck_test
