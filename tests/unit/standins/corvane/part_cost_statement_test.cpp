#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "standins/corvane/local_classes.h"
#include "tests/support/answering_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::AnsweringDatabase;
using stage::Reply;

const std::string lines = " From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where ";
const std::string last_purchase =
    "C1.Execute Select Top 1 STKTRANDT.UPRICE As UPRICE" + lines +
    "STKTRANDT.PARTNO='A''1' And STKTRANDT.UPRICE Is Not Null And Not STKTRANHD.TRANTYPE<>'STK010POREV' And "
    "STKTRANHD.STATUSSN=1 And STKTRANHD.TRANDT<=#2024/03/31# Order By STKTRANHD.TRANDT Desc,STKTRANHD.TRANNO "
    "Desc,"
    "STKTRANDT.UPRICE Desc | 1\n";
const std::string purchase_sums =
    "C1.Execute Select Sum(STKTRANDT.QTY) As QTY,Sum(STKTRANDT.QTY*STKTRANDT.UPRICE) As AMOUNT" + lines +
    "STKTRANDT.PARTNO='A''1' And STKTRANDT.UPRICE Is Not Null And Not STKTRANHD.TRANTYPE<>'STK010POREV' And "
    "STKTRANHD.STATUSSN=1 And STKTRANHD.TRANDT>#2024/02/29# And STKTRANHD.TRANDT<=#2024/03/31# | 1\n";

double price(const Object& connection, const char* member) {
  register_classes();
  Value close = "#2024/03/31#";
  Value opened = connection;
  return automation::to_double(automation::create("Corvane.CSystem")
                                   .call(member, "A'1", ref(close), "#2024/02/29#", ref(opened), Null{}));
}

TEST(CostStatement, TheLastPriceTakesOneQuery) {
  AnsweringDatabase database([](const std::string&) { return Reply{{{{"UPRICE", 2.5}}}, 0}; });
  EXPECT_EQ(price(database.connection(), "GetLastUprice"), 2.5);
  EXPECT_EQ(database.log(), last_purchase + "R1.Close\n");
}

TEST(CostStatement, AnAverageTakesOneQueryAndItsFallbackAnother) {
  AnsweringDatabase with_receipts([](const std::string&) {
    return Reply{{{{"QTY", 4}, {"AMOUNT", 10}}}, 0};
  });
  EXPECT_EQ(price(with_receipts.connection(), "GetAvgUprice"), 2.5);
  EXPECT_EQ(with_receipts.log(), purchase_sums + "R1.Close\n");

  AnsweringDatabase without([](const std::string& statement) {
    return statement.starts_with("Select Sum") ? Reply{{{{"QTY", Null{}}, {"AMOUNT", Null{}}}}, 0} : Reply{};
  });
  EXPECT_EQ(price(without.connection(), "GetAvgUprice"), 0);
  EXPECT_EQ(without.log(), purchase_sums + "R1.Close\n" + last_purchase + "R2.Close\n");
}

// The caller relies on the end of its connection to discard what it has not committed.
TEST(CostStatement, NothingKeepsTheConnectionAliveAfterwards) {
  register_classes();
  const Object system = automation::create("Corvane.CSystem");
  AnsweringDatabase database([](const std::string& statement) -> Reply {
    if (statement.find("A2") != std::string::npos) throw Error(-1, "broken");
    return {};
  });
  {
    const Object connection = database.connection();
    system.call("GetLastUprice", "A1", "'2024/03/31'", "'2024/02/29'", connection, 1);
    system.call("GetPartCost", "A1", "'2024/03/31'", "'2024/02/29'", 1.0, connection);
    EXPECT_THROW(system.call("GetPartCost", "A2", "'2024/03/31'", "'2024/02/29'", 1.0, connection), Error);
  }
  EXPECT_EQ(database.alive(), 0);
}

TEST(CostStatement, ErrorsReachTheCallerAsTheyAre) {
  AnsweringDatabase database([](const std::string&) -> Reply { throw Error(-2147217900, "syntax error"); });
  const Object connection = database.connection();
  for (const char* member : {"GetLastUprice", "GetAvgUprice"}) {
    try {
      price(connection, member);
      ADD_FAILURE() << member;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), -2147217900);
      EXPECT_EQ(error.description(), "syntax error");
    }
  }
}

TEST(CostStatement, WrongArgumentsAreErrors) {
  register_classes();
  const Object system = automation::create("Corvane.CSystem");
  const auto number_of = [&](const auto& call) {
    try {
      call();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(number_of([&] { system.call("GetLastUprice", "A1"); }),
            automation::error_number::wrong_argument_count);
  EXPECT_EQ(number_of([&] { system.call("GetLastUprice", "A1", "'x'", "'y'", "no connection", 1); }),
            automation::error_number::object_required);
  EXPECT_EQ(number_of([&] { system.call("GetLastUprice", "A1", "'x'", "'y'", Object(), 1); }),
            automation::error_number::object_not_set);
  EXPECT_EQ(number_of([&] { system.call("GetLastUprice", Null{}, "'x'", "'y'", Object(), 1); }),
            automation::error_number::invalid_null);
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
