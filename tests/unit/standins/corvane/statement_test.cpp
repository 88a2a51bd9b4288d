#include <gtest/gtest.h>

#include "tests/unit/standins/corvane/builder_call.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::CivilTime;
using automation::Object;
using automation::Value;

automation::Date moment(const CivilTime& civil) {
  return automation::date_from_civil(civil).value();
}

Object addresses() {
  return table_of({{"ADDRNO", 200},
                   {"SN", 3},
                   {"PRICE", 5},
                   {"ADDDT", 135},
                   {"VALID", 11},
                   {"Order", 200},
                   {"Unit name", 202}});
}

TEST(Builder, WritesAnInsertStatement) {
  const Object builder = power_check("MSSQLSERVER");
  EXPECT_EQ(build(builder, "GetInsertSQL", "REVADDR", {"ADDRNO", "SN"}, {"A1", 7}, addresses()),
            "Insert Into REVADDR(ADDRNO,SN) Values('A1',7)");
  EXPECT_EQ(builder.get("ErrNumber"), Value(0));
  EXPECT_EQ(builder.get("ErrDescription"), Value(""));
}

TEST(Builder, WritesAnUpdateStatementWithoutACondition) {
  EXPECT_EQ(
      build(power_check("MSSQLSERVER"), "GetUpdateSQL", "REVADDR", {"ADDRNO", "SN"}, {"A1", 7}, addresses()),
      "Update REVADDR Set ADDRNO='A1',SN=7");
}

TEST(Builder, KeepsTheCallersOrderAndTheTablesSpelling) {
  EXPECT_EQ(build(power_check(""), "GetUpdateSQL", "REVADDR", {"price", "AddrNo"}, {1.5, "A1"}, addresses()),
            "Update REVADDR Set PRICE=1.5,ADDRNO='A1'");
}

TEST(Builder, PutsNamesThatAreNoPlainWordsInBrackets) {
  EXPECT_EQ(
      build(power_check(""), "GetInsertSQL", "REVADDR", {"unit name", "ORDER"}, {"kg", "x"}, addresses()),
      "Insert Into REVADDR([Unit name],[Order]) Values('kg','x')");
}

TEST(Builder, WritesDatesInTheDialectOfTheDatabaseKind) {
  const struct {
    const char* kind;
    const char* statement;
  } cases[] = {
      {"MSACCESS", "Update REVADDR Set ADDDT=#2024/03/31 14:05:09#"},
      {"MSSQLSERVER", "Update REVADDR Set ADDDT='2024/03/31 14:05:09'"},
      {"msaccess", "Update REVADDR Set ADDDT='2024/03/31 14:05:09'"},
      {"", "Update REVADDR Set ADDDT='2024/03/31 14:05:09'"},
  };
  for (const auto& row : cases)
    EXPECT_EQ(build(power_check(row.kind), "GetUpdateSQL", "REVADDR", {"ADDDT"},
                    {moment({2024, 3, 31, 14, 5, 9})}, addresses()),
              row.statement)
        << row.kind;
}

TEST(Builder, LeavesTheCallersArgumentsAlone) {
  const Object names = list_of({"ADDRNO"});
  Value table = "REVADDR";
  Value name_list = names;
  Value value_list = list_of({"A1"});
  Value structure = addresses();
  const Value before[] = {table, name_list, value_list, structure};
  power_check("").call("GetInsertSQL", automation::ref(table), automation::ref(name_list),
                       automation::ref(value_list), automation::ref(structure));
  EXPECT_EQ(table, before[0]);
  EXPECT_EQ(name_list, before[1]);
  EXPECT_EQ(value_list, before[2]);
  EXPECT_EQ(structure, before[3]);
  EXPECT_EQ(names.get("Count"), Value(1));
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
