#include <gtest/gtest.h>

#include "tests/support/outcome.h"
#include "tests/support/queries.h"
#include "tests/support/stage.h"

// The one query that does not touch the error fields: whatever fails, it is 0 and nothing leaks.
namespace tallyra {
namespace {

using automation::ref;
using automation::Value;
using stage::Outcome;
using stage::Stage;

Outcome ask(const automation::Object& client) {
  Value order = "M1", part = "P1", type = "STK020MISS";
  return stage::outcome_of(client, client.call("IssuedOrRtnQty", "T1", ref(order), ref(part), ref(type)));
}

TEST(UnreportedQuery, AnyFailureIsZeroAndNothingLeaks) {
  bool failed = true;
  for (int step = 0; failed; ++step) {
    Stage stage;
    stage.finds(stage::issued_for_order("STK020MISS"), {{"PARTNO", "QTY"}, {{"P1", -5}}});
    stage.finds_nothing(stage::returned_from_order("STK021RTN1"));
    const auto client = stage.client("CTranDetail");
    stage.fails_at(step, automation::Error(-2147217887, "injected"));
    const Outcome outcome = ask(client);
    failed = stage.failed();
    ASSERT_EQ(outcome, (Outcome{failed ? 0.0 : 5.0, 0, ""})) << stage.transcript();
    ASSERT_EQ(stage.alive(), 0) << stage.transcript();
    EXPECT_TRUE(failed || step > 10);
  }
}

}  // namespace
}  // namespace tallyra
