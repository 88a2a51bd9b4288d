#include "standins/corvane/power_check.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "standins/corvane/failure.h"
#include "tests/support/busy_collection.h"
#include "tests/unit/automation/error_of.h"
#include "tests/unit/standins/corvane/builder_call.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::error_of;
using automation::Object;
using automation::Value;
using automation::error_number::no_such_member;
using automation::error_number::wrong_argument_count;

Object numbered_addresses() {
  return table_of({{"ADDRNO", 200}, {"SN", 3}});
}

TEST(PowerCheckObject, AFailureIsForgottenAtTheNextCall) {
  const Object builder = power_check("");
  build(builder, "GetInsertSQL", "REVADDR", {"X"}, {1}, numbered_addresses());
  EXPECT_EQ(build(builder, "GetInsertSQL", "REVADDR", {"SN"}, {1}, numbered_addresses()),
            "Insert Into REVADDR(SN) Values(1)");
  EXPECT_EQ(builder.get("ErrNumber"), Value(0));
  EXPECT_EQ(builder.get("ErrDescription"), Value(""));
}

TEST(PowerCheckObject, TheFailureOfAStatementBuiltMeanwhileIsNotThatOfTheOneAroundIt) {
  const Object builder = power_check("");
  bool failing = true;
  const Object names = automation::make_object<tests::BusyCollection>([&] {
    EXPECT_EQ(
        build(builder, "GetUpdateSQL", "REVADDR", {failing ? "X" : "SN"}, {1}, numbered_addresses()).empty(),
        failing);
  });
  names.call("Add", "SN");
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", names, list_of({7}), numbered_addresses()),
            Value("Insert Into REVADDR(SN) Values(7)"));
  EXPECT_EQ(builder.get("ErrNumber"), Value(0));
  EXPECT_EQ(builder.get("ErrDescription"), Value(""));
  failing = false;
  EXPECT_EQ(builder.call("GetInsertSQL", "REVADDR", names, list_of({"seven"}), numbered_addresses()),
            Value(""));
  EXPECT_EQ(builder.get("ErrNumber"), Value(failure::unfit_value));
}

TEST(PowerCheckObject, AnotherNumberOfArgumentsIsAnErrorAndNoFailedStatement) {
  const Object check = power_check("");
  EXPECT_EQ(error_of([&] { check.call("GetInsertSQL", "REVADDR"); }), wrong_argument_count);
  EXPECT_EQ(error_of([&] { check.call("PowerCheck"); }), wrong_argument_count);
  EXPECT_EQ(check.get("ErrNumber"), Value(0));
}

TEST(PowerCheckObject, ItsSessionIsWrittenAndNeverRead) {
  const Object check = power_check("MSACCESS");
  for (const char* member : {"Language", "ConnectionString", "UserID", "SystemDatabase"}) {
    EXPECT_NO_THROW(check.put(member, "x")) << member;
    EXPECT_EQ(error_of([&] { check.get(member); }), no_such_member) << member;
  }
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
