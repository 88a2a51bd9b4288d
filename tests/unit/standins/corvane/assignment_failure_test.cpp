#include <gtest/gtest.h>

#include "automation/error.h"
#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/builder_call.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::Value;

Object dated_addresses() {
  return table_of({{"ADDRNO", 200}, {"SN", 3}, {"ADDDT", 135}});
}

struct Failure {
  const char* table;
  std::vector<Value> names;
  std::vector<Value> values;
  std::int32_t number;
  const char* description;
};

std::vector<Failure> failures() {
  const std::string long_text = std::string(59, 'x') + "ä and much more";
  return {
      {"REVADDR", {"ADDRNO"}, {}, failure::counts_differ, "1 columns and 0 values are given for REVADDR."},
      {"REVADDR", {}, {}, failure::counts_differ, "0 columns and 0 values are given for REVADDR."},
      {"REVADDR", {"ADDRNO", ""}, {"A", 1}, failure::no_column_name, "Column 2 for REVADDR has no name."},
      {"REVADDR", {" "}, {1}, failure::no_column_name, "Column 1 for REVADDR has no name."},
      {"REVADDR", {7}, {1}, failure::no_column_name, "Column 1 for REVADDR has no name."},
      {"REVADDR", {automation::Null{}}, {1}, failure::no_column_name, "Column 1 for REVADDR has no name."},
      {"REVADDR", {"ADRNO"}, {1}, failure::unknown_column, "REVADDR has no column ADRNO."},
      {"REVADDR", {"SN=1,ADDRNO"}, {1}, failure::unknown_column, "REVADDR has no column SN=1,ADDRNO."},
      {"REVADDR",
       {"SN", "sn"},
       {1, 2},
       failure::repeated_column,
       "Column SN of REVADDR is given more than once."},
      {"REVADDR",
       {"SN"},
       {"seven"},
       failure::unfit_value,
       "The value \"seven\" does not fit into column SN of REVADDR."},
      {"REVADDR",
       {"SN"},
       {long_text},
       failure::unfit_value,
       "The value \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\" does not fit into "
       "column SN of "
       "REVADDR."},
      {"REVADDR",
       {"ADDDT"},
       {"31.03.2024"},
       failure::unfit_value,
       "The value \"31.03.2024\" does not fit into column ADDDT of REVADDR."},
      {"REVADDR",
       {"ADDDT"},
       {automation::Date{1e9}},
       failure::unfit_value,
       "The value \"?\" does not fit into column ADDDT of REVADDR."},
      {"REVADDR",
       {"ADDRNO"},
       {std::string("a\0b", 3)},
       failure::unfit_value,
       "The value \"a?b\" does not fit into column ADDRNO of REVADDR."},
      {"REVADDR",
       {"ADDRNO"},
       {list_of({})},
       failure::object_as_value,
       "An object, an array or an omitted value cannot be written into column ADDRNO of REVADDR."},
      {"REVADDR",
       {"ADDRNO"},
       {automation::Missing{}},
       failure::object_as_value,
       "An object, an array or an omitted value cannot be written into column ADDRNO of REVADDR."},
      {"REVADDR; Drop", {"SN"}, {1}, failure::bad_table_name, "\"REVADDR; Drop\" is no name of a table."},
      {"", {"SN"}, {1}, failure::bad_table_name, "\"\" is no name of a table."},
  };
}

TEST(BuilderFailure, GivesNoTextAndTellsWhy) {
  const Object builder = power_check("");
  for (const char* member : {"GetInsertSQL", "GetUpdateSQL"}) {
    for (const Failure& row : failures()) {
      EXPECT_EQ(build(builder, member, row.table, row.names, row.values, dated_addresses()), "")
          << row.description;
      EXPECT_EQ(builder.get("ErrNumber"), Value(row.number)) << row.description;
      EXPECT_EQ(builder.get("ErrDescription"), Value(row.description));
    }
  }
}

TEST(BuilderFailure, NumbersSurviveSinglePrecision) {
  for (const Failure& row : failures())
    EXPECT_EQ(static_cast<std::int32_t>(static_cast<float>(row.number)), row.number);
}

TEST(BuilderFailure, ArgumentsOfTheWrongKindAreAFailureToo) {
  const Object builder = power_check("");
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", "no list", list_of({1}), dated_addresses()), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(automation::error_number::object_required));
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", list_of({"SN"}), list_of({1}), list_of({})), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(automation::error_number::no_such_member));
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", list_of({"SN"}), list_of({1}), Object()), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(automation::error_number::object_not_set));
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
