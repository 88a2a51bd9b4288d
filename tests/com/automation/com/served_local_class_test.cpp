#include <gtest/gtest.h>

#include "automation/com/served_module.h"
#include "automation/error.h"
#include "automation/local/local_classes.h"
#include "tests/com/echo_object.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::com::Pointer;
using automation::com::served_local_class;

TEST(ServedLocalClass, MakesObjectsOfTheClassOfThisProcess) {
  const automation::local::ScopedClass echo("Test.Echo",
                                            [] { return automation::make_object<EchoObject>(); });
  const auto served = served_local_class(IID_IDispatch, "Test.Echo", L"Echoes");
  EXPECT_EQ(served.class_id, IID_IDispatch);
  EXPECT_EQ(served.prog_id, L"Test.Echo");
  EXPECT_EQ(served.description, L"Echoes");
  const Pointer<IUnknown> first = served.make();
  const Pointer<IUnknown> second = served.make();
  EXPECT_NE(first.get(), second.get());
  const auto object = automation::com::query<IDispatch>(first.get());
  ASSERT_TRUE(object);
  const Variant text(Value("x"), Role::caller);
  WireCall call{.id = 2, .arguments = {text.raw()}};
  ASSERT_EQ(call.on(object.get()), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value("x"));
}

TEST(ServedLocalClass, IsError429WithoutTheClass) {
  const auto served = served_local_class(IID_IDispatch, "Test.NoSuchClass", L"");
  try {
    served.make();
    ADD_FAILURE();
  } catch (const automation::Error& error) {
    EXPECT_EQ(error.number(), automation::error_number::cannot_create);
  }
}

}  // namespace
}  // namespace tallyra::tests::com
