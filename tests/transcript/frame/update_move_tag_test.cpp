#include "tests/transcript/frame/record_script.h"

// Updates whose tag decides which right is needed.
namespace tallyra::records {
namespace {

class RecordTag : public RecordTest {
 protected:
  // A user with every right but one.
  static void grant_all_but(const char* right, const Value& value, Stage& to) {
    for (const char* other : {"CanUpdate", "CanInsert", "CanDelete", "CanApproved", "CanUnapproved",
                              "CanCancel", "CanFinished", "Owner"})
      to.set(other, 1);
    to.set(right, value);
  }
};
TALLYRA_ON_RECORD_CLASSES(RecordTag, each.update_tag != RecordClass::no_tag);

TEST_P(RecordTag, EachTagAsksForARightOfItsOwnAndNoOwnerHelps) {
  for (const auto& [word, right] :
       {std::pair{"APPROVED", "CanApproved"}, std::pair{"UNAPPROVED", "CanUnapproved"},
        std::pair{"CANCEL", "CanCancel"}, std::pair{"FINISHED", "CanFinished"}})
    for (const Value& value : no_rights) {
      Stage each(GetParam().kind);
      grant_all_but(right, value, each);
      tag = word;
      EXPECT_EQ(play(client(each), "Update"), refused(10000016)) << word << stage::shown(value);
      EXPECT_TRUE(each.rights_calls().ends_with(asked(right)));
      EXPECT_EQ(each.database_calls(), "");
    }
}

TEST_P(RecordTag, CancellingFinishingAndEditingAreTheSameStatements) {
  const struct {
    const char* word;
    const char* right;
  } rows[] = {{"CANCEL", "CanCancel"},     {"FINISHED", "CanFinished"},
              {"approved", "CanUpdate"},   {"APPROVED ", "CanUpdate"},
              {"Unapproved", "CanUpdate"}, {"CANCEL ", "CanUpdate"},
              {"x", "CanUpdate"},          {"", "CanUpdate"}};
  for (const auto& [word, right] : rows) {
    Stage each(GetParam().kind);
    each.set(right, 1);
    tag = word;
    EXPECT_EQ(play(client(each), "Update"), done) << word;
    EXPECT_EQ(each.database_calls(), open_for_writing() + update_calls()) << word;
    EXPECT_TRUE(each.rights_calls().ends_with(asked(right) + built("GetUpdateSQL"))) << word;
  }
}

TEST_P(RecordTag, AnEditIsNotGrantedByTheRightsOfTheTags) {
  grant_all_but("CanUpdate", 2, stage);
  stage.set("Owner", 0);
  tag = "approved";
  EXPECT_EQ(play("Update"), refused(10000016));
  EXPECT_TRUE(
      stage.rights_calls().ends_with(asked("CanUpdate") + (record.has_owner() ? "rights.Owner\n" : "")));
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(RecordTag, AnApprovalIsRefusedBeforeAnyRightIsAskedWhenItsCollectionsDoNotMatch) {
  stage.set("CanApproved", 1);
  tag = "APPROVED";
  Fields::add(fields.values, "surplus");
  EXPECT_EQ(play("Update"), refused(10000002));
  fields = Fields();
  EXPECT_EQ(play("Update"), refused(10000002));
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(RecordTag, ABuilderErrorEndsAnApprovalBeforeAnythingIsWritten) {
  stage.set("CanApproved", 1).set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  tag = "APPROVED";
  EXPECT_EQ(play("Update"), trapped(77, "no such column"));
  EXPECT_EQ(stage.database_calls(), open_for_writing() + opened(record.structure) + "R1.Close\nC1.Close\n");
}

}  // namespace
}  // namespace tallyra::records
