#include <gtest/gtest.h>

#include "tests/support/company_database.h"
#include "tests/support/record_methods.h"

// Shipping notes on a real database.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::ref;
using stage::done;
using stage::Fields;
using stage::Outcome;

class ShipNoteOnEachEngine : public testing::TestWithParam<const char*> {
 protected:
  Outcome play(const char* member, const char* number, Fields& fields, const char* user = "ADMIN") {
    return stage::play_record(company.client("CStkShipNote", user), member, number, fields);
  }
  Outcome remove(const char* number, const char* user = "ADMIN") {
    return stage::play_record(company.client("CStkShipNote", user), "Delete", number);
  }
  std::string stored() {
    return company.rows("SELECT TRANNO,TRANTYPE,NOTES,ADDBY FROM STKSHIPNOTE ORDER BY 1");
  }

  CompanyDatabase company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, ShipNoteOnEachEngine, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(ShipNoteOnEachEngine, ANoteLivesItsWholeLife) {
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

TEST_P(ShipNoteOnEachEngine, AnOwnerEndsInTheTrapWhateverTheTypeOfTheNote) {
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
  EXPECT_EQ(play("Update", "NONE", change, "OWNER").number, 3705) << "no note, no owner to differ from";
  EXPECT_EQ(remove("NONE", "OWNER").number, 3705);
  EXPECT_EQ(stored(), before);
}

TEST_P(ShipNoteOnEachEngine, ANoteWithoutCreatorHasNoOwner) {
  company.grant("OWNER", "OWNER");
  company.run(
      {"INSERT INTO STKSHIPNOTE(TRANNO,TRANTYPE,ADDBY) VALUES('T1','STK030SHIPN',NULL),"
       "('T2','STK030SHIPN','')"});
  const std::string before = stored();
  Fields change{{"NOTES", "x"}};
  for (const char* number : {"T1", "T2"}) {
    EXPECT_EQ(play("Update", number, change, "OWNER").number, 10000016) << number;
    EXPECT_EQ(remove(number, "OWNER").number, 10000016) << number;
  }
  EXPECT_EQ(stored(), before);
}

TEST_P(ShipNoteOnEachEngine, ARightToInsertOfTwoIsNoneHereAndOneForAddresses) {
  company.run({"INSERT INTO USERRIGHTS(USERID,FUNCCODE,CANINSERT) VALUES('CLERK','*',2)"});
  Fields note{{"TRANNO", "T1"}, {"NOTES", "x"}};
  EXPECT_EQ(play("Insert", "T1", note, "CLERK").number, 10000016);
  EXPECT_EQ(stored(), "");
  Fields address{{"ADDRNO", "A1"}};
  const Object addresses = company.client("CRevAddr", "CLERK");
  EXPECT_EQ(
      stage::outcome_of(addresses, addresses.call("Insert", "A1", ref(address.names), ref(address.values))),
      done);
}

TEST_P(ShipNoteOnEachEngine, AnEmptyNumberIsANumberAndAnApostropheBreaksTheStatement) {
  Fields note{{"TRANNO", ""}, {"NOTES", "of no document"}};
  EXPECT_EQ(play("Insert", "", note), done);
  Fields change{{"NOTES", "changed"}};
  EXPECT_EQ(play("Update", "", change), done);
  EXPECT_EQ(stored(), "|NULL|changed|NULL\n");
  Fields read;
  for (const Outcome& outcome : {play("Read", "O'Neil", read), play("Insert", "O'Neil", note),
                                 play("Update", "O'Neil", change), remove("O'Neil")}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(-2147217900)) << outcome.description;
  }
  EXPECT_EQ(read.text(), "");
  EXPECT_EQ(stored(), "|NULL|changed|NULL\n");
  EXPECT_EQ(remove(""), done);
  EXPECT_EQ(stored(), "");
}

TEST_P(ShipNoteOnEachEngine, AFailedInsertLeavesNothing) {
  Fields note{{"TRANNO", "T1"}, {"NOTES", "x"}};
  company.refuse("NO_NOTES", "INSERT", "STKSHIPNOTE", "", "no notes");
  const Outcome outcome = play("Insert", "T1", note);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("no notes"), std::string::npos) << outcome.description;
  EXPECT_EQ(stored(), "");
}

}  // namespace
}  // namespace tallyra::behaviour
