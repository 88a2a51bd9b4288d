#include <gtest/gtest.h>

#include <stdexcept>

#include "automation/convert.h"
#include "automation/error.h"
#include "tests/memory/failing_new.h"
#include "tests/memory/fresh_process.h"
#include "tests/support/stage.h"

// What goes wrong for want of memory before or outside of a method.
namespace tallyra {
namespace {

using automation::Error;
using automation::Object;
using automation::Value;
using memory::Shortage;
using stage::Stage;

const std::string long_text = "a text that is long enough to need memory of its own";

// The error that a use raises while there is no memory at all, as the first of a process.
std::string error_without_memory(const std::function<void()>& use) {
  return memory::in_fresh_process([&] {
    std::string told = "nothing";
    memory::begin({1, Shortage::Length::from_then_on});
    try {
      use();
    } catch (...) {
      const Error error = automation::current_error();
      memory::end();
      told = std::to_string(error.number()) + " " + std::string(error.description());
    }
    memory::end();
    return told;
  });
}

// The same of a use that raises Error and nothing else.
std::string raised_without_memory(const std::function<void()>& use) {
  return error_without_memory([&] {
    try {
      use();
    } catch (const Error&) {
      throw;
    } catch (...) {
      throw Error(0);
    }
  });
}

TEST(MemoryError, IsToldWithoutMemoryAsTheFirstOfAProcess) {
  struct Case {
    std::function<void()> use;
    const char* told;
  };
  const Error described(1000, long_text);
  const Case cases[] = {
      {[] { throw std::bad_alloc(); }, "7 Out of memory"},
      {[] { throw 1; }, "-2147418113 Catastrophic failure"},
      // Its text cannot be kept.
      {[] { throw std::exception(); }, "7 Out of memory"},
      {[] { throw Error(91); }, "91 Object variable or With block variable not set"},
      {[&] { throw Error(described); }, "1000 a text that is long enough to need memory of its own"},
  };
  for (const auto& each : cases) EXPECT_EQ(error_without_memory(each.use), each.told);
}

TEST(MemoryEdge, AnArgumentThatCannotBeTakenOverRaisesErrorSevenBeforeAnythingHappens) {
  Stage stage;
  const Object object = stage.client("CRevAddr");
  const Value key = long_text;
  EXPECT_EQ(raised_without_memory([&] { object.call("Delete", key); }), "7 Out of memory");
  EXPECT_EQ(stage.transcript(), "");
}

TEST(MemoryEdge, APropertyThatCannotBeWrittenRaisesErrorSevenAndKeepsItsContent) {
  const Value text = long_text;
  for (const char* property : {"ConnectionString", "UserID", "Language", "SystemDatabase"}) {
    Stage stage;
    const Object object = stage.client("CRevAddr");
    EXPECT_EQ(raised_without_memory([&] { object.put(property, text); }), "7 Out of memory");
    const std::string told = memory::in_fresh_process([&] {
      memory::begin({1, Shortage::Length::from_then_on});
      try {
        object.put(property, text);
      } catch (const Error&) {
      }
      memory::end();
      object.call("Delete", "A1");
      return stage.transcript();
    });
    EXPECT_NE(told.find("rights.PowerCheck"), std::string::npos) << told;
    EXPECT_EQ(told.find(long_text), std::string::npos) << told;
  }
}

TEST(MemoryEdge, ADescriptionThatCannotBeHandedOutRaisesErrorSevenAndStays) {
  Stage stage;
  stage.fails("C1.Open", Error(1000, long_text));
  const std::string told = memory::in_fresh_process([&] {
    const Object object = stage.client("CStkShipNote");
    stage.set("CanDelete", 1);
    object.call("Delete", "T1");
    memory::begin({1, Shortage::Length::from_then_on});
    std::string raised = "nothing";
    try {
      object.get("ErrDescription");
    } catch (const Error& error) {
      memory::end();
      raised = std::to_string(error.number());
    }
    memory::end();
    return raised + " " + automation::to_text(object.get("ErrDescription"));
  });
  EXPECT_EQ(told, "7 " + long_text);
}

}  // namespace
}  // namespace tallyra
