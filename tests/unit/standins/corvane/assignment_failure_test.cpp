#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "automation/error.h"
#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/builder_call.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::Value;

Object addresses() {
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
      EXPECT_EQ(build(builder, member, row.table, row.names, row.values, addresses()), "") << row.description;
      EXPECT_EQ(builder.get("ErrNumber"), Value(row.number)) << row.description;
      EXPECT_EQ(builder.get("ErrDescription"), Value(row.description));
    }
  }
}

TEST(BuilderFailure, NumbersSurviveSinglePrecision) {
  for (const Failure& row : failures())
    EXPECT_EQ(static_cast<std::int32_t>(static_cast<float>(row.number)), row.number);
}

TEST(BuilderFailure, IsForgottenAtTheNextCall) {
  const Object builder = power_check("");
  build(builder, "GetInsertSQL", "REVADDR", {"X"}, {1}, addresses());
  EXPECT_EQ(build(builder, "GetInsertSQL", "REVADDR", {"SN"}, {1}, addresses()),
            "Insert Into REVADDR(SN) Values(1)");
  EXPECT_EQ(builder.get("ErrNumber"), Value(0));
  EXPECT_EQ(builder.get("ErrDescription"), Value(""));
}

// Has something done whenever it is used.
class BusyCollection : public automation::Collection {
 public:
  explicit BusyCollection(std::function<void()> work) : work_(std::move(work)) {}
  Value invoke(automation::MemberId id, automation::Access access, automation::Arguments arguments) override {
    work_();
    return automation::Collection::invoke(id, access, arguments);
  }

 private:
  std::function<void()> work_;
};

TEST(BuilderFailure, OfAStatementBuiltMeanwhileIsNotThatOfTheOneAroundIt) {
  const Object builder = power_check("");
  bool failing = true;
  const Object names = automation::make_object<BusyCollection>([&] {
    EXPECT_EQ(build(builder, "GetUpdateSQL", "REVADDR", {failing ? "X" : "SN"}, {1}, addresses()).empty(),
              failing);
  });
  names.call("Add", "SN");
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", names, list_of({7}), addresses()),
            Value("Insert Into REVADDR(SN) Values(7)"));
  EXPECT_EQ(builder.get("ErrNumber"), Value(0));
  EXPECT_EQ(builder.get("ErrDescription"), Value(""));
  failing = false;
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", names, list_of({"seven"}), addresses()), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(failure::unfit_value));
}

TEST(BuilderFailure, ArgumentsOfTheWrongKindAreAFailureToo) {
  const Object builder = power_check("");
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", "no list", list_of({1}), addresses()), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(automation::error_number::object_required));
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", list_of({"SN"}), list_of({1}), list_of({})), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(automation::error_number::no_such_member));
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", list_of({"SN"}), list_of({1}), Object()), Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(automation::error_number::object_not_set));
}

TEST(BuilderFailure, AnotherNumberOfArgumentsIsAnError) {
  EXPECT_THROW(power_check("").call("GetInsertSQL", "REVADDR"), automation::Error);
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
