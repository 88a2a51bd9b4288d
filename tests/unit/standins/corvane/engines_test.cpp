#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/create.h"
#include "tests/support/empty_database.h"
#include "tests/unit/standins/corvane/builder_call.h"
#include "tests/unit/standins/corvane/company_database.h"

// What this library asks of a database, on every engine: its statements are those of Access and SQL Server,
// and what stands between turns them into the engine's.
namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

class CorvaneOn : public ::testing::TestWithParam<tests::TestedEngine> {
 protected:
  void SetUp() override {
    auto empty = GetParam().empty_database();
    if (!empty) GTEST_SKIP() << "there is no " << GetParam().name << " server here";
    database_.emplace(std::move(empty));
  }

  const CompanyDatabase& database() const { return *database_; }
  std::string next(const Object& system) const {
    Value key;
    const Value result = system.call("GetTableKeyID", "STK027CLOSE", "TRANNO", ref(key));
    return automation::to_text(result == Value(1) ? key : system.get("ErrDescription"));
  }
  static void run(const Object& connection, const char* statement) {
    Value affected;
    connection.call("Execute", statement, ref(affected), -1);
  }

 private:
  std::optional<CompanyDatabase> database_;
};

TEST_P(CorvaneOn, TheMostExactRowOfRightsCounts) {
  database().run({"Insert Into USERRIGHTS(USERID,FUNCCODE,CANINSERT) Values('ANNA ','STK028ADDR',1)",
                  "Insert Into USERRIGHTS(USERID,FUNCCODE,CANUPDATE) Values('ANNA','*',1)",
                  "Insert Into USERRIGHTS(USERID,FUNCCODE,CANDELETE) Values('*','STK030SHIPN',1)",
                  "Insert Into USERRIGHTS(USERID,FUNCCODE,CANDELETE) Values('anna','STK028ADDR',1)"});
  const auto rights = [&](const char* user, const char* code) {
    const Object check = database().power_check(user);
    check.call("PowerCheck", code);
    std::string bits;
    for (const char* right : {"CanInsert", "CanUpdate", "CanDelete"})
      bits += automation::to_text(check.get(right));
    return bits;
  };
  EXPECT_EQ(rights("ANNA", "STK028ADDR"), "100");
  EXPECT_EQ(rights(" ANNA ", "STK028ADDR "), "100");
  EXPECT_EQ(rights("ANNA", "STK030SHIPN"), "010");
  EXPECT_EQ(rights("BERT", "STK030SHIPN"), "001");
  EXPECT_EQ(rights("BERT", "STK028ADDR"), "000");
}

TEST_P(CorvaneOn, BuiltStatementsStoreWhatTheyWereGiven) {
  const Object connection = database().open();
  Value affected;
  const auto structure = [&](const std::string& table) {
    return automation::to_object(
        connection.call("Execute", "Select * From " + table + " Where 1=0", ref(affected), -1));
  };
  const Object builder = database().power_check();
  const Value day = *automation::date_from_civil({2024, 2, 29, 14, 5, 9});
  const std::string insert =
      build(builder, "GetInsertSQL", "STKTRANDT", {"TRANNO", "PARTNO", "SN", "QTY", "ADDDT", "NOTES"},
            {"T'1", "中 ", 3, -0.125, day, automation::Null{}}, structure("STKTRANDT"));
  ASSERT_NE(insert, "") << automation::to_text(builder.get("ErrDescription"));
  run(connection, insert.c_str());
  run(connection, "Insert Into DEPARTS(DEPTNO,DEPTNM) Values('10 ','old')");
  const std::string update =
      build(builder, "GetUpdateSQL", "DEPARTS", {"DEPTNM"}, {"new"}, structure("DEPARTS")) +
      " Where DEPTNO='10'";
  run(connection, update.c_str());
  connection.call("Close");
  EXPECT_EQ(database().value("Select PARTNO From STKTRANDT Where TRANNO='T''1'"), Value("中 "));
  EXPECT_EQ(database().value("Select QTY From STKTRANDT"), Value(-0.125));
  EXPECT_EQ(automation::to_int32(database().value("Select SN From STKTRANDT")), 3);
  EXPECT_EQ(database().value("Select ADDDT From STKTRANDT"), day);
  EXPECT_TRUE(database().value("Select NOTES From STKTRANDT").is_null());
  EXPECT_EQ(database().value("Select DEPTNM From DEPARTS"), Value("new"));
}

TEST_P(CorvaneOn, ANumberIsAboveThoseOfStoredDocuments) {
  database().run({"Insert Into STKTRANHD(TRANNO,TRANTYPE) Values('027CLOSE00000041','X')",
                  "Insert Into STKTRANHD(TRANNO,TRANTYPE) Values('027CLOSE00000041 old','X')"});
  const Object system = database().system();
  EXPECT_EQ(next(system), "027CLOSE00000042");
  EXPECT_EQ(next(system), "027CLOSE00000043");
}

TEST_P(CorvaneOn, ANumberIsIssuedInATransactionOfItsOwnWhileTheCallersIsOpen) {
  const Object caller = database().open();
  caller.call("BeginTrans");
  run(caller, "Insert Into STKTRANHD(TRANNO,TRANTYPE) Values('T1','X')");
  const Object system = database().system();
  EXPECT_EQ(next(system), "027CLOSE00000001");
  run(caller, "Insert Into STKTRANHD(TRANNO,TRANTYPE) Values('027CLOSE00000001','X')");
  EXPECT_EQ(next(system), "027CLOSE00000002");
  caller.call("RollbackTrans");
  caller.call("Close");
  // What the caller threw away has used up its numbers all the same.
  EXPECT_EQ(next(system), "027CLOSE00000003");
}

TEST_P(CorvaneOn, PartsCostWhatTheirDocumentsSay) {
  const char* header = "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT) Values('";
  const char* line = "Insert Into STKTRANDT(SN,TRANNO,PARTNO,QTY,UPRICE) Values(0,'";
  std::vector<std::string> statements;
  for (const char* document :
       {"R1','STK010POREV',1,'2024/02/10 00:00:00')", "R2','STK010POREV',1,'2024/03/10 00:00:00')",
        "R3','STK010POREV',0,'2024/03/20 00:00:00')", "C1','STKCLOSEALL',1,'2024/03/01 00:00:00')",
        "P1','STK022REVMO',1,'2024/03/15 00:00:00')"})
    statements.push_back(std::string(header) + document);
  for (const char* values : {"R1','A',10,2)", "R2','A',10,4)", "R2','A',5,1)", "R3','A',10,9)",
                             "C1','M',8,3)", "P1','M',8,5)", "R2','N',1,Null)"})
    statements.push_back(std::string(line) + values);
  database().run(statements);
  const Object connection = database().open();
  const Object system = database().system();
  const auto cost = [&](const char* member, const char* part) {
    return automation::to_double(system.call(member, part, "'2024/03/31'", "'2024/02/29'", connection, 1));
  };
  EXPECT_EQ(cost("GetLastUprice", "A"), 4);
  EXPECT_EQ(cost("GetAvgUprice", "A"), 3);
  EXPECT_EQ(cost("GetLastUprice", "N"), 0);
  EXPECT_EQ(
      automation::to_double(system.call("GetPartCost", "M", "'2024/03/31'", "'2024/02/29'", 1.0, connection)),
      4);
  connection.call("Close");
}

INSTANTIATE_TEST_SUITE_P(SQLite, CorvaneOn, ::testing::Values(tests::sqlite_engine));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, CorvaneOn, ::testing::Values(tests::postgresql_engine));

}  // namespace
}  // namespace tallyra::standins::corvane::testing
