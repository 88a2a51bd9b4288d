#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/create.h"
#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/builder_call.h"
#include "tests/unit/standins/corvane/company_database.h"

// Builder statements as a database takes them, over a recordset as it describes its own table.
namespace tallyra::standins::corvane::testing {
namespace {

using automation::Null;
using automation::Object;
using automation::Value;

class WrittenValues : public ::testing::Test {
 protected:
  std::string statement(const char* member, const char* table, const std::vector<Value>& names,
                        const std::vector<Value>& values) {
    const Object connection = database.open();
    const Object recordset = automation::create("ADODB.Recordset");
    recordset.put("CursorLocation", 2);
    recordset.call("Open", "Select top 1 * From " + std::string(table), connection, 0, 1, -1);
    std::string text = build(builder, member, table, names, values, recordset);
    recordset.call("Close");
    connection.call("Close");
    return text;
  }

  CompanyDatabase database;
  Object builder = database.power_check("ANNA");
};

TEST_F(WrittenValues, TextsComeBackAsTheyWent) {
  std::string long_text;
  for (int i = 0; i < 5000; ++i) long_text += "长'";
  for (const std::string& text :
       {std::string("plain"), std::string("O'Brien"), std::string("'); Delete From REVADDR; --"),
        std::string("''"), std::string("入库单 Größe 😀"), std::string("a\nb\tc"), std::string("2024/03/31"),
        std::string("#2024/03/31#"), std::string("\\"), std::string("{ts 'x'} ? :a @b $1"), std::string(""),
        long_text}) {
    database.run({"Delete From REVADDR", "Insert Into REVADDR(ADDRNO,NOTES) Values('KEPT','x')",
                  statement("GetInsertSQL", "REVADDR", {"AddrNo", "Notes"}, {"A1", text})});
    EXPECT_EQ(builder.get("ErrNumber"), Value(0));
    EXPECT_EQ(automation::to_text(database.value("Select NOTES From REVADDR Where ADDRNO='A1'")), text);
    EXPECT_EQ(automation::to_int32(database.value("Select Count(*) As N From REVADDR")), 2) << text;
  }
}

TEST_F(WrittenValues, DatesAreStoredInTheOneFormOfTheDatabase) {
  const struct {
    const char* kind;
    Value given;
    const char* stored;
  } cases[] = {
      {"MSACCESS", automation::parse_date("2024/03/31").value(), "2024-03-31 00:00:00"},
      {"MSSQLSERVER", automation::parse_date("2024/03/31").value(), "2024-03-31 00:00:00"},
      {"MSACCESS", "2024/03/31 14:05:09", "2024-03-31 14:05:09"},
      {"MSSQLSERVER", "2024/03/31 14:05:09", "2024-03-31 14:05:09"},
  };
  for (const auto& row : cases) {
    builder.put("SystemDatabase", row.kind);
    database.run(
        {"Delete From STKTRANHD",
         statement("GetInsertSQL", "STKTRANHD", {"TRANNO", "TRANTYPE", "TRANDT"}, {"T1", "X", row.given})});
    EXPECT_EQ(automation::to_text(database.value("Select 'stored '||TRANDT As D From STKTRANHD")),
              std::string("stored ") + row.stored);
  }
}

TEST_F(WrittenValues, NumbersAndNullKeepTheirKind) {
  database.run(
      {statement("GetInsertSQL", "STKTRANDT", {"TRANNO", "PARTNO", "SN", "QTY", "UPRICE", "VQTY", "ADDDT"},
                 {"T1", "P1", "7", 2.5, "0.125", Null{}, ""})});
  EXPECT_EQ(database.value("Select SN From STKTRANDT"), Value(7));
  EXPECT_EQ(database.value("Select QTY From STKTRANDT"), Value(2.5));
  EXPECT_EQ(database.value("Select UPRICE From STKTRANDT"), Value(0.125));
  EXPECT_EQ(database.value("Select VQTY From STKTRANDT"), Value(Null{}));
  EXPECT_EQ(database.value("Select ADDDT From STKTRANDT"), Value(Null{}));
}

TEST_F(WrittenValues, AnUpdateTakesTheCallersCondition) {
  database.run({"Insert Into REVADDR(ADDRNO,CITY) Values('A1','x')",
                "Insert Into REVADDR(ADDRNO,CITY) Values('A2','x')",
                statement("GetUpdateSQL", "REVADDR", {"CITY"}, {"L'Aquila"}) + " Where AddrNo='A1'"});
  EXPECT_EQ(database.value("Select CITY From REVADDR Where ADDRNO='A1'"), Value("L'Aquila"));
  EXPECT_EQ(database.value("Select CITY From REVADDR Where ADDRNO='A2'"), Value("x"));
}

TEST_F(WrittenValues, TheTablesOwnColumnsDecide) {
  EXPECT_EQ(statement("GetInsertSQL", "STKTRANDT", {"QTTY"}, {1}), "");
  EXPECT_EQ(builder.get("ErrNumber"), Value(failure::unknown_column));
  EXPECT_EQ(statement("GetInsertSQL", "STKTRANDT", {"SN"}, {"first"}), "");
  EXPECT_EQ(builder.get("ErrNumber"), Value(failure::unfit_value));
  EXPECT_EQ(statement("GetInsertSQL", "STKTRANHD", {"TRANDT"}, {"yesterday"}), "");
  EXPECT_EQ(builder.get("ErrNumber"), Value(failure::unfit_value));
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
