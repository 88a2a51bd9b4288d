#include "automation/com/byte_array.h"

#include <gtest/gtest.h>

#include "automation/bytes.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Opaque;

TEST(ComByteArray, IsCountedFromZero) {
  for (const std::string& content :
       {std::string(), std::string("\0\xFF\x10", 3), std::string(300'000, '\x80')}) {
    const Variant variant(Opaque(std::make_shared<automation::Bytes>(content)), Role::caller);
    ASSERT_EQ(V_VT(&variant.raw()), VT_ARRAY | VT_UI1);
    SAFEARRAY* array = V_ARRAY(&variant.raw());
    ASSERT_EQ(SafeArrayGetDim(array), 1U);
    EXPECT_EQ(array->rgsabound[0].lLbound, 0);
    ASSERT_EQ(array->rgsabound[0].cElements, content.size());
    EXPECT_EQ(content.compare(0, content.size(), static_cast<const char*>(array->pvData), content.size()), 0);

    for (const VARIANT& wire : {variant.raw(), reference(VT_ARRAY | VT_UI1, &array)}) {
      const Value value = value_in(wire);
      ASSERT_TRUE(value.holds<Opaque>());
      const auto* bytes = dynamic_cast<const automation::Bytes*>(value.get_if<Opaque>()->get());
      ASSERT_NE(bytes, nullptr);
      EXPECT_TRUE(bytes->content() == content);
    }
  }
}

TEST(ComByteArray, OfAnotherShapeKeepsIt) {
  SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 5}};
  Variant table;
  V_VT(&table.raw()) = VT_ARRAY | VT_UI1;
  V_ARRAY(&table.raw()) = SafeArrayCreate(VT_UI1, 2, bounds);
  Variant from_five;
  V_VT(&from_five.raw()) = VT_ARRAY | VT_UI1;
  V_ARRAY(&from_five.raw()) = SafeArrayCreateVector(VT_UI1, 5, 2);
  for (const Variant* each : {&table, &from_five}) {
    const Variant again(value_in(each->raw()), Role::caller);
    ASSERT_EQ(V_VT(&again.raw()), VT_ARRAY | VT_UI1);
    EXPECT_EQ(SafeArrayGetDim(V_ARRAY(&again.raw())), SafeArrayGetDim(V_ARRAY(&each->raw())));
    LONG first = 0;
    ASSERT_EQ(SafeArrayGetLBound(V_ARRAY(&again.raw()), SafeArrayGetDim(V_ARRAY(&again.raw())), &first),
              S_OK);
    EXPECT_EQ(first, 5);
  }
  Variant none;
  V_VT(&none.raw()) = VT_ARRAY | VT_UI1;
  const Variant still_none(value_in(none.raw()), Role::caller);
  EXPECT_EQ(V_ARRAY(&still_none.raw()), nullptr);
}

}  // namespace
}  // namespace tallyra::tests::com
