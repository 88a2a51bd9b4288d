#include <gtest/gtest.h>

#include <iostream>
#include <set>
#include <sstream>

#include "tests/memory/classes_outside.h"
#include "tests/memory/failing_new.h"
#include "tests/memory/fresh_process.h"
#include "tests/support/outcome.h"
#include "tests/support/queries.h"
#include "tests/support/stage.h"

// The two methods that let errors out, and the one that reports none.
namespace tallyra {
namespace {

using automation::Error;
using automation::Object;
using automation::ref;
using automation::Value;
using memory::Shortage;
using stage::Stage;

const Value& allocated_text() {
  static const Value text = "a text that is long enough to need memory of its own";
  return text;
}

// An object whose calls have been set up by another object of the thread, and one call of it.
class GuardScene {
 public:
  explicit GuardScene(const char* class_name) {
    stage_.connection_string = automation::to_text(allocated_text());
    stage_.finds("Select * From STKCLOSEHD Where CLOSEDT>=#2024/03/31#", {{"CLOSEDT"}, {{"a close"}}});
    for (const auto& query :
         {stage::issued_for_order("STK020MISS"), stage::returned_from_order("STK021RTN1")})
      stage_.finds_nothing(query);
    outside_.emplace();
    stage_.client("CStkShipNote").call("Delete", "T1");
    client_ = stage_.client(class_name);
    stage_.clear();
  }

  template <class Call>
  std::string play(const Call& call, std::optional<Shortage> shortage) {
    std::int32_t raised = 0;
    Value result;
    shortage ? memory::begin(*shortage) : memory::begin_counting();
    try {
      result = call(client_);
    } catch (const Error& error) {
      raised = error.number();
    }
    allocations_ = memory::end();
    std::ostringstream text;
    text << "raised " << raised << ", " << stage::outcome_of(client_, result.is_empty() ? Value(0) : result);
    return text.str();
  }
  long allocations() const { return allocations_; }

 private:
  Stage stage_;
  std::optional<memory::ClassesOutside> outside_;
  Object client_;
  long allocations_ = 0;
};

// Every allocation of the call fails in both ways: the outcomes, which each have to be one of those allowed,
// and the undisturbed outcome of the call after it.
template <class Call>
void expect_outcomes(const char* class_name, const Call& call, const std::set<std::string>& allowed,
                     const std::string& undisturbed) {
  GuardScene scene(class_name);
  const long allocations = std::stol(memory::in_fresh_process([&] {
    return scene.play(call, std::nullopt) == undisturbed ? std::to_string(scene.allocations()) : "0";
  }));
  ASSERT_GT(allocations, 0);
  for (const auto length : {Shortage::Length::once, Shortage::Length::from_then_on})
    for (long first = 1; first <= allocations; ++first) {
      const std::string seen = memory::in_fresh_process([&] {
        const std::string outcome = scene.play(call, Shortage{first, length});
        const std::string next = scene.play(call, std::nullopt);
        return next == undisturbed ? outcome : "the next call: " + next;
      });
      EXPECT_TRUE(allowed.contains(seen)) << seen << " at allocation " << first
                                          << (length == Shortage::Length::once ? "" : " and all after it");
    }
  std::cout << "cases: " << 2 * allocations << '\n';
}

Value ask_guard(const Object& object) {
  return object.call("ValidCloseDT", "2024/03/31");
}

const std::string closed = "raised 0, 0 / 10000112.000000 / text of Msg10000112";

TEST(MemoryGuardSweep, TheHeadOfStocktakingsReportsErrorSevenAndRaisesWhileTheConnectionIsOpen) {
  expect_outcomes("CCheckHead", ask_guard,
                  {"raised 0, 0 / 7.000000 / Out of memory", "raised 438, 0 / 7.000000 / Out of memory"},
                  closed);
}

TEST(MemoryGuardSweep, TheHeadOfTransactionsTakesTheDateForClosedOrRaisesErrorSeven) {
  const std::string text = "0 / 10000112.000000 / text of Msg10000112";
  expect_outcomes("CTranHead", ask_guard,
                  {
                      // Before the error trap is armed.
                      "raised 7, 0 / 0.000000 / ",
                      "raised 0, " + text,
                      "raised 438, " + text,
                      // No memory for the text either.
                      "raised 7, 0 / 10000112.000000 / ",
                  },
                  closed);
}

TEST(MemoryUnreportedSweep, TheQuantityIsNothingAndTheErrorFieldsStay) {
  expect_outcomes(
      "CTranDetail",
      [](const Object& object) {
        Value order = "M1", part = "P1", type = "STK020MISS";
        return object.call("IssuedOrRtnQty", "T1", ref(order), ref(part), ref(type));
      },
      {"raised 0, 0 / 0.000000 / "}, "raised 0, 0 / 0.000000 / ");
}

}  // namespace
}  // namespace tallyra
