#include "automation/local/local_classes.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/object_call.h"

namespace tallyra::automation::local {
namespace {

// A factory of collections that hold the text.
Factory holding(const char* text) {
  return [text] {
    Object made = make_object<Collection>();
    made.call("Add", text);
    return made;
  };
}

Value held(const Factory& factory) {
  return factory().call("Item", 1);
}

TEST(LocalClasses, AreFoundByTheirNameWhateverItsCase) {
  register_class("Test.LocalClasses", holding("a"));
  EXPECT_EQ(held(find_factory("TEST.localclasses")), Value("a"));
  EXPECT_FALSE(find_factory("Test.LocalClass"));
}

TEST(LocalClasses, TheLaterOneOfANameTakesThePlaceOfTheEarlier) {
  register_class("Test.Later", holding("a"));
  register_class("test.later", holding("b"));
  EXPECT_EQ(held(find_factory("Test.Later")), Value("b"));
}

TEST(LocalClasses, AreReplacedForAWhile) {
  register_class("Test.Scoped", holding("a"));
  {
    const ScopedClass other("TEST.SCOPED", holding("b"));
    EXPECT_EQ(held(find_factory("Test.Scoped")), Value("b"));
    const ScopedClass hidden("Test.Scoped", {});
    EXPECT_FALSE(find_factory("Test.Scoped"));
  }
  EXPECT_EQ(held(find_factory("Test.Scoped")), Value("a"));
}

TEST(LocalClasses, AreGoneAgainWhereThereWereNone) {
  { const ScopedClass passing("Test.Passing", holding("a")); }
  EXPECT_FALSE(find_factory("Test.Passing"));
}

}  // namespace
}  // namespace tallyra::automation::local
