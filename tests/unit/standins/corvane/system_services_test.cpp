#include <gtest/gtest.h>

#include <fstream>

#include "automation/convert.h"
#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/company_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Missing;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;

// The key that a call issued; on failure "failed with" and the number of the error. A failure leaves the key
// alone.
template <class... Day>
std::string next(const Object& system, const Value& type, const Value& column, Day... day) {
  Value key = "as it was";
  const Value result = system.call("GetTableKeyID", type, column, ref(key), day...);
  const auto number = automation::to_int32(system.get("ErrNumber"));
  const auto description = automation::to_text(system.get("ErrDescription"));
  if (result == Value(1)) {
    EXPECT_EQ(number, 0);
    EXPECT_EQ(description, "");
    return automation::to_text(key);
  }
  EXPECT_EQ(result, Value(0));
  EXPECT_EQ(key, Value("as it was"));
  EXPECT_NE(description, "");
  EXPECT_EQ(static_cast<std::int32_t>(static_cast<float>(number)), number);
  return "failed with " + std::to_string(number);
}

std::string document(const std::string& number) {
  return "Insert Into STKTRANHD(TRANNO,TRANTYPE) Values('" + number + "','X')";
}

TEST(TableKey, EachSeriesCountsForItself) {
  const CompanyDatabase database;
  const Object system = database.system();
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000001");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000002");
  EXPECT_EQ(next(system, "STK030SHIP", "TRANNO"), "030SHIP00000001");
  EXPECT_EQ(next(system, "STKCHECKISS", "TRANNO", 2024, 3, 31), "CHECKISS2403310001");
  EXPECT_EQ(next(system, "STKCHECKISS", "TRANNO", 2024, 3, 31), "CHECKISS2403310002");
  EXPECT_EQ(next(system, "STKCHECKISS", "TRANNO", 2024, 4, 1), "CHECKISS2404010001");
  EXPECT_EQ(next(system, "STK026CHECK", "CHECKNO"), "026CHECK00000001");
  EXPECT_EQ(next(database.system(), "STK027CLOSE", "tranno"), "027CLOSE00000003");
}

TEST(TableKey, OmittedDateArgumentsAskForTheRunningSeries) {
  const CompanyDatabase database;
  const Object system = database.system();
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", Missing{}, Missing{}, Missing{}), "027CLOSE00000001");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", std::int16_t{2024}, 3.0, "31"), "027CLOSE2403310001");
}

TEST(TableKey, ADayMayHaveFourDigitsOfDocuments) {
  const CompanyDatabase database;
  database.run({document("CHECKISS2403319998")});
  const Object system = database.system();
  EXPECT_EQ(next(system, "STKCHECKISS", "TRANNO", 2024, 3, 31), "CHECKISS2403319999");
  EXPECT_EQ(next(system, "STKCHECKISS", "TRANNO", 2024, 3, 31),
            "failed with " + std::to_string(failure::series_exhausted));
}

TEST(TableKey, NumbersStayAboveTheStoredDocuments) {
  const CompanyDatabase database;
  const Object system = database.system();
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000001");
  database.run({document("027CLOSE00000040"), document("027CLOSE00000039"), document("027CLOSE0000007X"),
                document("027CLOSE000001000"), document("027CLOSE"), document("027CLOSEX0000099"),
                document("028ADDR00000500")});
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000041");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000042");
}

TEST(TableKey, ALostKeyFileDoesNoHarm) {
  const CompanyDatabase database;
  for (int i = 0; i < 3; ++i) next(database.system(), "STK027CLOSE", "TRANNO");
  database.run({document("027CLOSE00000003")});
  ASSERT_TRUE(std::filesystem::remove(database.key_file()));
  EXPECT_EQ(next(database.system(), "STK027CLOSE", "TRANNO"), "027CLOSE00000004");
}

TEST(TableKey, AStaleKeyFileDoesNoHarm) {
  const CompanyDatabase database;
  next(database.system(), "STK027CLOSE", "TRANNO");
  const auto saved = database.key_file().string() + ".saved";
  std::filesystem::copy_file(database.key_file(), saved);
  for (int i = 0; i < 5; ++i) database.run({document(next(database.system(), "STK027CLOSE", "TRANNO"))});
  // Not in one step: copying over a file is beyond some platforms' libraries.
  std::filesystem::remove(database.key_file());
  std::filesystem::copy_file(saved, database.key_file());
  EXPECT_EQ(next(database.system(), "STK027CLOSE", "TRANNO"), "027CLOSE00000007");
}

TEST(TableKey, IsIssuedWhileTheCallerHoldsAWriteTransaction) {
  const CompanyDatabase database;
  database.run({document("027CLOSE00000005")});
  for (const char* mode : {"PRAGMA journal_mode=WAL", "PRAGMA journal_mode=DELETE"}) {
    database.run({mode});
    const Object connection = database.open();
    Value affected;
    connection.call("BeginTrans");
    connection.call("Execute", "Update STKTRANHD Set STATUS='x'", ref(affected), -1);
    EXPECT_EQ(affected, Value(1));
    const std::string key = next(database.system(), "STK027CLOSE", "TRANNO");
    EXPECT_EQ(key, mode == std::string("PRAGMA journal_mode=WAL") ? "027CLOSE00000006" : "027CLOSE00000007");
    connection.call("Execute", document(key), ref(affected), -1);
    connection.call("RollbackTrans");
    connection.call("Close");
  }
}

TEST(TableKey, AnUncommittedDocumentsNumberIsNotIssuedAgain) {
  const CompanyDatabase database;
  const Object connection = database.open();
  connection.call("BeginTrans");
  const std::string first = next(database.system(), "STK027CLOSE", "TRANNO");
  Value affected;
  connection.call("Execute", document(first), ref(affected), -1);
  EXPECT_EQ(next(database.system(), "STK027CLOSE", "TRANNO"), "027CLOSE00000002");
  connection.call("CommitTrans");
  connection.call("Close");
}

TEST(TableKey, ALockedKeyFileEndsInAFailureAfterABoundedWait) {
  const CompanyDatabase database;
  const Object system = database.system();
  system.put("ConnectionString", database.connection_string() + ";Timeout=200");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000001");
  const Object holder = database.open(database.key_file().generic_string());
  holder.call("BeginTrans");
  Value affected;
  holder.call("Execute", "Update TABLEKEYS Set LASTNO=77", ref(affected), -1);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"),
            "failed with " + std::to_string(failure::key_database_failed));
  EXPECT_NE(automation::to_text(system.get("ErrDescription")).find("locked"), std::string::npos)
      << automation::to_text(system.get("ErrDescription"));
  holder.call("RollbackTrans");
  holder.call("Close");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000002");
}

TEST(TableKey, ADatabaseThatCannotBeUsedIsAFailure) {
  const CompanyDatabase database;
  const Object system = database.system();
  const std::string failed = "failed with " + std::to_string(failure::key_database_failed);
  system.put("ConnectionString", "DRIVER={SQLite3};Database=" + database.key_file().string() + "/nowhere.db");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), failed);
  system.put("ConnectionString", "");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "failed with " + std::to_string(failure::no_key_database));
  system.put("ConnectionString", database.connection_string());
  database.run({"Drop Table STKTRANHD"});
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), failed);
}

TEST(TableKey, AKeyFileThatIsNoDatabaseIsAFailure) {
  const CompanyDatabase database;
  std::ofstream(database.key_file()) << "This is a letter to whom it may concern, and no database at all.\n";
  EXPECT_EQ(next(database.system(), "STK027CLOSE", "TRANNO"),
            "failed with " + std::to_string(failure::key_database_failed));
}

// What an administrator does about a series that a planted counter has used up.
TEST(TableKey, ASeriesIsMendedByTakingItsCounterOutOfTheKeyFile) {
  const CompanyDatabase database;
  const Object system = database.system();
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000001");
  EXPECT_EQ(next(system, "STK030SHIP", "TRANNO"), "030SHIP00000001");
  database.run({document("027CLOSE00000001")});
  const Object keys = database.open(database.key_file().generic_string());
  for (const char* planted : {"99999999", "2147483647", "9223372036854775807"}) {
    keys.call("Execute", "Update TABLEKEYS Set LASTNO=" + std::string(planted) + " Where SERIES='027CLOSE'");
    EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"),
              "failed with " + std::to_string(failure::series_exhausted))
        << planted;
    keys.call("Execute", "Delete From TABLEKEYS Where SERIES='027CLOSE'");
    EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000002") << planted;
  }
  EXPECT_EQ(next(system, "STK030SHIP", "TRANNO"), "030SHIP00000002") << "the other series go on";

  database.run({document("027CLOSE99999999")});
  keys.call("Execute", "Delete From TABLEKEYS Where SERIES='027CLOSE'");
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"),
            "failed with " + std::to_string(failure::series_exhausted));
  database.run({"Delete From STKTRANHD Where TRANNO='027CLOSE99999999'"});
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000002");
  keys.call("Close");
}

TEST(TableKey, UnknownShapesAreAFailure) {
  const CompanyDatabase database;
  const Object system = database.system();
  const std::string shape = "failed with " + std::to_string(failure::bad_key_request);
  const std::string date = "failed with " + std::to_string(failure::bad_key_date);
  EXPECT_EQ(next(system, "", "TRANNO"), shape);
  EXPECT_EQ(next(system, "STK'; Drop", "TRANNO"), shape);
  EXPECT_EQ(next(system, Null{}, "TRANNO"), shape);
  EXPECT_EQ(next(system, database.open(), "TRANNO"), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", "PARTNO"), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", ""), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", 5), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 3), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 3, 31, 1), shape);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, Missing{}, 31), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 2, 30), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 13, 1), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 0, 0, 0), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 257, 31), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 3, 257), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, 3, -255), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, -253, 1), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 67560, 3, 1), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", 2024, "March", 1), date);
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO", Null{}, 3, 1), date);
  EXPECT_EQ(system.call("GetTableKeyID"), Value(0));
  EXPECT_EQ(system.get("ErrNumber"), Value(failure::bad_key_request));
  EXPECT_EQ(next(system, "STK027CLOSE", "TRANNO"), "027CLOSE00000001");
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
