#include "automation/com/object_passage.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/collection_object.h"
#include "automation/object_call.h"
#include "tests/com/echo_object.h"

namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::Value;
using automation::com::dispatch_of;
using automation::com::object_of;
using automation::com::Pointer;
using automation::com::Role;

TEST(ObjectPassage, ItsOwnSideGetsTheObjectBackTheOtherSideCallsIt) {
  const Object own = automation::make_object<automation::Collection>();
  const auto handed_out = dispatch_of(own, Role::callee);
  EXPECT_EQ(object_of(handed_out.get(), Role::callee), own);
  const Object seen = object_of(handed_out.get(), Role::caller);
  EXPECT_NE(seen, own);
  seen.call("Add", "x");
  EXPECT_EQ(own.get("Count"), Value(1));
}

TEST(ObjectPassage, AnObjectOfTheOtherSideGoesBackAsItself) {
  const auto foreign = dispatch_of(automation::make_object<EchoObject>(), Role::callee);
  const Object seen = object_of(foreign.get(), Role::caller);
  EXPECT_EQ(dispatch_of(seen, Role::caller).get(), foreign.get());
}

TEST(ObjectPassage, NoObjectIsNoneOnEitherSide) {
  EXPECT_FALSE(dispatch_of(Object(), Role::callee));
  EXPECT_FALSE(object_of(nullptr, Role::callee));
}

bool is_collection(IDispatch& object) {
  Pointer<IUnknown> found;
  return SUCCEEDED(object.QueryInterface(automation::com::collection_interface_id, found.out_void()));
}

TEST(ObjectPassage, ACollectionHasTheInterfaceOfOneAndNothingElseHas) {
  const auto collection = dispatch_of(automation::make_object<automation::Collection>(), Role::callee);
  EXPECT_TRUE(is_collection(*collection.get()));
  const auto other = dispatch_of(automation::make_object<EchoObject>(), Role::callee);
  EXPECT_FALSE(is_collection(*other.get()));
}

}  // namespace
}  // namespace tallyra::tests::com
