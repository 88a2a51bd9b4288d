#include "automation/create.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/local/local_classes.h"
#include "automation/object_call.h"
#include "tests/unit/automation/error_of.h"

namespace tallyra::automation {
namespace {

TEST(LocalCreate, MakesANewObjectEachTimeWhateverTheCaseOfTheName) {
  const local::ScopedClass of_test("Test.Create", [] { return make_object<Collection>(); });
  const Object first = create("Test.Create");
  const Object second = create("TEST.CREATE");
  EXPECT_NE(first, second);
  EXPECT_EQ(second.get("Count"), Value(0));
}

TEST(LocalCreate, IsError429WithoutTheClass) {
  EXPECT_EQ(error_of([] { create("Test.NoSuchClass"); }), error_number::cannot_create);
  const local::ScopedClass hidden("Test.Create", {});
  EXPECT_EQ(error_of([] { create("Test.Create"); }), error_number::cannot_create);
}

TEST(LocalCreate, LetsTheErrorOfTheClassThrough) {
  const local::ScopedClass denied("Test.Create", []() -> Object { throw Error(70); });
  EXPECT_EQ(error_of([] { create("Test.Create"); }), 70);
}

}  // namespace
}  // namespace tallyra::automation
