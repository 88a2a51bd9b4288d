#include <gtest/gtest.h>

#include <limits>

#include "tests/transcript/stage/fields.h"
#include "tests/transcript/stage/outcome.h"
#include "tests/transcript/stage/stage.h"

// The costing settings of material types.
namespace tallyra {
namespace {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;
using stage::trapped;

const std::string row_query = "Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=7";
const std::string key_query = "Select * From PARTCOSTSET where MTYPESN=7";
const std::string update_calls =
    "C1.State\n"
    "C1.Open 'DSN=x' '' '' -1\n"
    "R1.CursorLocation = 2\n"
    "R1.Open Select top 1 * From PARTCOSTSET | C1 0 1 -1\n"
    "R1.Close\n"
    "C1.Execute <GetUpdateSQL PARTCOSTSET> Where PARTCOSTSET.MTYPESN=7 | -1\n"
    "C1.Close\n";
const Value omitted{automation::Missing{}};

Outcome update(Stage& stage, Fields& fields, Value tag, const Value& key = 7) {
  const Object settings = stage.client("CPartCostSet");
  return outcome_of(settings, settings.call("Update", key, ref(fields.names), ref(fields.values), ref(tag)));
}

class PartCostSet : public testing::TestWithParam<const char*> {
 protected:
  Outcome play(const char* member, const Value& number = 7) {
    const Object settings = stage.client("CPartCostSet");
    Value key = number;
    if (std::string_view(member) == "Delete") return outcome_of(settings, settings.call(member, key));
    return outcome_of(settings, settings.call(member, ref(key), ref(fields.names), ref(fields.values)));
  }

  Stage stage{GetParam()};
  Fields fields{{"COSTMETHOD", 1}};
};
INSTANTIATE_TEST_SUITE_P(Kinds, PartCostSet, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(PartCostSet, ReadPutsNewCollectionsWithTheFirstRowInFieldOrder) {
  stage.finds(row_query, {{"MTYPESN", "COSTMETHOD"}, {{7, Null{}}}});
  EXPECT_EQ(play("Read"), done);
  EXPECT_EQ(fields.text(), "MTYPESN=7 COSTMETHOD=Null");
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                row_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.MoveFirst\n"
                "R1.Close\n"
                "C1.Close\n");
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(PartCostSet, ReadOfAMissingSettingSucceedsWithEmptyCollections) {
  EXPECT_EQ(play("Read"), (Outcome{100, 10000003, "text of Msg10000003"}));
  EXPECT_EQ(fields.text(), "");
}

TEST_P(PartCostSet, UpdateIsOneStatementWithoutTransaction) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(update(stage, fields, ""), done);
  EXPECT_EQ(stage.database_calls(), update_calls);
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK050PCOST'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'PARTCOSTSET' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(PartCostSet, TheTagDecidesOnlyWhichRightIsNeeded) {
  const struct {
    Value tag;
    const char* right;
  } rows[] = {{"APPROVED", "CanApproved"}, {"UNAPPROVED", "CanUnapproved"}, {"CANCEL", "CanCancel"},
              {"FINISHED", "CanFinished"}, {"approved", "CanUpdate"},       {"CANCEL ", "CanUpdate"},
              {"", "CanUpdate"},           {omitted, "CanUpdate"}};
  for (const auto& [tag, right] : rows) {
    Stage granted(GetParam());
    granted.set(right, 1);
    EXPECT_EQ(update(granted, fields, tag), done) << stage::shown(tag);
    EXPECT_EQ(granted.database_calls(), update_calls) << stage::shown(tag);

    Stage denied(GetParam());
    for (const char* other :
         {"CanUpdate", "CanApproved", "CanUnapproved", "CanCancel", "CanFinished", "Owner"})
      denied.set(other, 1);
    denied.set(right, 2);
    EXPECT_EQ(update(denied, fields, tag), refused(10000016)) << stage::shown(tag);
    EXPECT_TRUE(
        denied.rights_calls().ends_with("PowerCheck 'STK050PCOST'\nrights." + std::string(right) + "\n"));
    EXPECT_EQ(denied.database_calls(), "");
  }
}

TEST_P(PartCostSet, TheTagMayBeLeftOutAltogether) {
  stage.set("CanUpdate", 1);
  const Object settings = stage.client("CPartCostSet");
  EXPECT_EQ(outcome_of(settings, settings.call("Update", 7, ref(fields.names), ref(fields.values))), done);
}

TEST_P(PartCostSet, InsertRunsInATransaction) {
  stage.set("CanInsert", 1);
  EXPECT_EQ(play("Insert"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                key_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.BeginTrans\n"
                "C1.Execute <GetInsertSQL PARTCOSTSET> | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(PartCostSet, InsertOfAnExistingTypeIsRefused) {
  stage.set("CanInsert", 1).finds(key_query, {{"MTYPESN"}, {{7}}});
  EXPECT_EQ(play("Insert"), refused(10000004));
  EXPECT_TRUE(
      stage.database_calls().ends_with("R1.Open " + key_query + " | C1 3 1 -1\nR1.Close\nC1.Close\n"));
}

TEST_P(PartCostSet, DeleteRunsInATransaction) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(play("Delete"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n"
            "C1.BeginTrans\n"
            "C1.Execute Delete From PARTCOSTSET Where MTYPESN=7 | -1\n"
            "C1.CommitTrans\n"
            "C1.Close\n");
  EXPECT_TRUE(stage.rights_calls().ends_with("rights.PowerCheck 'STK050PCOST'\nrights.CanDelete\n"));
}

TEST_P(PartCostSet, NoErrorRollsBackTheConnectionIsLetGo) {
  stage.set("CanInsert", 1).set("CanUpdate", 1).set("CanDelete", 1);
  for (const char* member : {"Insert", "Update", "Delete"}) {
    stage.fails("Execute", Error(-2147467259, "locked"));
    EXPECT_EQ(play(member), trapped(-2147467259, "locked")) << member;
    EXPECT_TRUE(stage.database_calls().ends_with(" | -1 ! locked\n")) << member;
  }
}

TEST_P(PartCostSet, OnlyTheNumberOneIsARightAndNoOwnerHelps) {
  stage.set("Owner", 1);
  for (const Value& right : {Value(0), Value(2), Value(-1), Value(Null{}), Value(true)}) {
    stage.set("CanInsert", right).set("CanUpdate", right).set("CanDelete", right);
    for (const char* member : {"Insert", "Update", "Delete"})
      EXPECT_EQ(play(member), refused(10000016)) << member << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
  EXPECT_EQ(stage.transcript().find("rights.Owner"), std::string::npos);
}

TEST_P(PartCostSet, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  Fields::add(fields.names, "SURPLUS");
  for (const char* member : {"Insert", "Update"}) EXPECT_EQ(play(member), refused(10000002)) << member;
  fields = Fields();
  for (const char* member : {"Insert", "Update"}) EXPECT_EQ(play(member), refused(10000002)) << member;
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(PartCostSet, ABuilderErrorIsCopiedWithEverythingClosed) {
  stage.set("CanInsert", 1).set("CanUpdate", 1);
  stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(play("Insert"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.Close\nC1.Close\n"));
  EXPECT_EQ(play("Update"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R2.Close\nC2.Close\n"));
}

TEST_P(PartCostSet, TheKeyIsWrittenAsABareNumber) {
  const struct {
    Value key;
    const char* text;
  } rows[] = {{-5, "-5"},
              {0, "0"},
              {std::numeric_limits<std::int32_t>::max(), "2147483647"},
              {std::numeric_limits<std::int32_t>::min(), "-2147483648"},
              {" 12 ", "12"}};
  stage.set("CanInsert", 1).set("CanUpdate", 1).set("CanDelete", 1);
  for (const auto& [key, text] : rows) {
    stage.clear();
    fields = Fields{{"COSTMETHOD", 1}};
    for (const char* member : {"Insert", "Update", "Delete", "Read"}) play(member, key);
    const auto tells = [&](const std::string& statement) {
      return stage.transcript().find(statement + text + " |") != std::string::npos;
    };
    EXPECT_TRUE(tells("Open Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=")) << text;
    EXPECT_TRUE(tells("Open Select * From PARTCOSTSET where MTYPESN=")) << text;
    EXPECT_TRUE(tells("Execute <GetUpdateSQL PARTCOSTSET> Where PARTCOSTSET.MTYPESN=")) << text;
    EXPECT_TRUE(tells("Execute Delete From PARTCOSTSET Where MTYPESN=")) << text;
  }
}

TEST_P(PartCostSet, AKeyThatIsNo32BitNumberNeverArrives) {
  const Object settings = stage.client("CPartCostSet");
  const struct {
    Value key;
    std::int32_t raised;
  } rows[] = {{"seven", 13}, {Null{}, 13}, {2147483648.0, 6}};
  for (const auto& [key, raised] : rows) {
    std::int32_t number = 0;
    try {
      settings.call("Delete", key);
    } catch (const Error& error) {
      number = error.number();
    }
    EXPECT_EQ(number, raised) << stage::shown(key);
  }
  EXPECT_EQ(stage.transcript(), "");
}

}  // namespace
}  // namespace tallyra
