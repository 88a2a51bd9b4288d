#include <gtest/gtest.h>

#include "tests/behaviour/stage/company_database.h"

// Shipping notes on a real database.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::ref;
using stage::done;
using stage::Fields;
using stage::Outcome;

class ShipNoteOnSqlite : public testing::TestWithParam<const char*> {
 protected:
  Outcome play(const char* member, const char* number, Fields& fields, const char* user = "ADMIN") {
    const Object note = company.client("CStkShipNote", user);
    return stage::outcome_of(note, note.call(member, number, ref(fields.names), ref(fields.values)));
  }
  Outcome remove(const char* number, const char* user = "ADMIN") {
    const Object note = company.client("CStkShipNote", user);
    return stage::outcome_of(note, note.call("Delete", number));
  }
  std::string stored() {
    return company.rows("SELECT TRANNO,TRANTYPE,NOTES,ADDBY FROM STKSHIPNOTE ORDER BY 1");
  }

  CompanyDatabase company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, ShipNoteOnSqlite, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(ShipNoteOnSqlite, ANoteLivesItsWholeLife) {
  Fields note{
      {"TRANNO", "T1"}, {"TRANTYPE", "STK030SHIPN"}, {"NOTES", "arrived, 1 box wet"}, {"ADDBY", "ADMIN"}};
  EXPECT_EQ(play("Insert", "T1", note), done);
  EXPECT_EQ(play("Insert", "T1", note).number, 10000004);
  EXPECT_EQ(stored(), "T1|STK030SHIPN|arrived, 1 box wet|ADMIN\n");
  Fields read{{"BEFORE", 1}};
  EXPECT_EQ(play("Read", "T1", read), done);
  EXPECT_TRUE(read.text().starts_with("BEFORE=1 TRANNO='T1' TRANTYPE='STK030SHIPN'")) << read.text();
  Fields change{{"NOTES", "dried"}};
  EXPECT_EQ(play("Update", "T1", change), done);
  EXPECT_EQ(stored(), "T1|STK030SHIPN|dried|ADMIN\n");
  EXPECT_EQ(remove("T1"), done);
  EXPECT_EQ(stored(), "");
  EXPECT_EQ(play("Read", "T1", read).number, 10000003);
}

TEST_P(ShipNoteOnSqlite, AnOwnerEndsInTheTrapWhateverTheTypeOfTheNote) {
  company.grant("OWNER", "OWNER");
  company.run(
      {"INSERT INTO STKSHIPNOTE(TRANNO,TRANTYPE,ADDBY) VALUES('T1','STK030SHIPN','OWNER'),"
       "('T2','STK030SHIP','OTHER'),('T3','STK030SHIPN','OTHER')"});
  const std::string before = stored();
  Fields change{{"NOTES", "x"}};
  EXPECT_EQ(play("Update", "T1", change, "OWNER").number, 3705);
  EXPECT_EQ(play("Update", "T2", change, "OWNER").number, 3705) << "not asked for its owner";
  EXPECT_EQ(play("Update", "T3", change, "OWNER").number, 10000016);
  EXPECT_EQ(remove("T1", "OWNER").number, 3705);
  EXPECT_EQ(remove("T2", "OWNER").number, 10000016);
  EXPECT_EQ(stored(), before);
}

TEST_P(ShipNoteOnSqlite, AFailedInsertLeavesNothing) {
  Fields note{{"TRANNO", "T1"}, {"NOTES", "x"}};
  company.run(
      {"CREATE TRIGGER NO_NOTES AFTER INSERT ON STKSHIPNOTE BEGIN SELECT RAISE(ABORT,'no notes'); END"});
  const Outcome outcome = play("Insert", "T1", note);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("no notes"), std::string::npos) << outcome.description;
  EXPECT_EQ(stored(), "");
}

}  // namespace
}  // namespace tallyra::behaviour
