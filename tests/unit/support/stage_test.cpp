#include "tests/support/stage.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "automation/create.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"

// The stage answers nothing that it was not told about: such a question fails the test, and the asker hears
// an error.
namespace tallyra {
namespace {

using automation::Error;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;
using stage::Outcome;
using stage::Stage;

const std::string row = "Select * From REVADDR Where AddrNo='A1'";

class StageQuestions : public testing::Test {
 protected:
  Outcome read() {
    const Object addresses = stage.client("CRevAddr");
    Value key = "A1";
    return stage::outcome_of(addresses,
                             addresses.call("Read", ref(key), ref(fields.names), ref(fields.values)));
  }
  // The error that comes back from reading or setting a member.
  static std::int32_t error_of(const std::function<void()>& access) {
    try {
      access();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  }

  Stage stage;
  Fields fields;
};

TEST_F(StageQuestions, AnUntoldQueryFailsTheTestAndTheMethod) {
  Outcome outcome{};
  EXPECT_NONFATAL_FAILURE(outcome = read(), "not told about: " + row);
  EXPECT_EQ(outcome, stage::trapped(-2147217900, "a query that the stage was not told about"));
}

TEST_F(StageQuestions, AQueryThatDiffersByABlankIsUntold) {
  stage.finds_nothing(row + " ");
  EXPECT_NONFATAL_FAILURE(read(), "not told about: " + row);
}

TEST_F(StageQuestions, NothingIsFoundUntilSomethingIsTold) {
  const Outcome missing{100, 10000003, "text of Msg10000003"};
  stage.finds_nothing(row);
  EXPECT_EQ(read(), missing);
  stage.finds(row, {{"ADDRNO"}, {{"A1"}}});
  EXPECT_EQ(read(), stage::done);
  stage.finds_nothing(row);
  EXPECT_EQ(read(), stage::done);
  stage.forgets(row);
  EXPECT_EQ(read(), missing);
}

TEST_F(StageQuestions, AnUntoldFieldIsNoItem) {
  stage.finds(row, {{"ADDRNO"}, {{"A1"}}});
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", "DSN=x", "", "", -1);
  const Object recordset = automation::create("ADODB.Recordset");
  recordset.call("Open", row, connection, 0, 1, -1);
  const Object found = automation::to_object(recordset.get("Fields"));
  EXPECT_EQ(error_of([&] { found.call("Item", "addrno"); }), 0);
  std::int32_t error = 0;
  EXPECT_NONFATAL_FAILURE(error = error_of([&] { found.call("Item", "QTY"); }), "not told about: 'QTY'");
  EXPECT_EQ(error, 3265);
}

TEST_F(StageQuestions, AnUntoldMemberOrPropertyIsNone) {
  const Object wording = automation::create("Lexbank.CPartF");
  std::int32_t error = 0;
  EXPECT_NONFATAL_FAILURE(error = error_of([&] { wording.get("NameCheck"); }), "wording.NameCheck");
  EXPECT_EQ(error, automation::error_number::no_such_member);
  EXPECT_NONFATAL_FAILURE(error = error_of([&] { wording.put("UserID", "X"); }), "put wording.UserID");
  EXPECT_EQ(error, automation::error_number::no_such_member);
  stage.set("wording.NameCheck", "Counted");
  EXPECT_EQ(wording.get("NameCheck"), Value("Counted"));
}

}  // namespace
}  // namespace tallyra
