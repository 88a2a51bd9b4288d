#include "automation/com/variant.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Currency;
using automation::Date;
using automation::Decimal;
using automation::Error;
using automation::Missing;
using automation::Null;

struct TypedValue {
  VARTYPE type;
  Value value;
};

const TypedValue typed_values[] = {
    {VT_EMPTY, {}},
    {VT_NULL, Null{}},
    {VT_ERROR, Missing{}},
    {VT_BOOL, true},
    {VT_BOOL, false},
    {VT_UI1, std::uint8_t{255}},
    {VT_I2, std::int16_t{-32768}},
    {VT_I4, std::int32_t{-2147483647 - 1}},
    {VT_I8, std::int64_t{9223372036854775807}},
    {VT_R4, 3.4028235e38F},
    {VT_R4, -0.0F},
    {VT_R8, 1.7976931348623157e308},
    {VT_R8, 5e-324},
    {VT_CY, Currency{9223372036854775807}},
    {VT_CY, Currency{-1}},
    {VT_DECIMAL, Decimal({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 0, false)},
    {VT_DECIMAL, Decimal({15000, 0, 0}, 4, true)},
    {VT_DECIMAL, Decimal({1, 0, 0}, 28, false)},
    {VT_DATE, Date{45358.58690972}},
    {VT_DATE, Date{-1.25}},
    {VT_BSTR, "text"},
    {VT_BSTR, ""},
    {VT_BSTR, std::string("a\0b", 3)},
    {VT_BSTR, "\xED\xA0\xBD"},
    {VT_DISPATCH, automation::Object()},
};

TEST(ComVariant, EveryValueComesBackWithItsTypeAndContent) {
  for (const auto& [type, value] : typed_values) {
    SCOPED_TRACE(type);
    const Variant variant(value, Role::caller);
    EXPECT_EQ(V_VT(&variant.raw()), type);
    EXPECT_EQ(value_in(variant.raw()), value);
  }
}

TEST(ComVariant, IsReadThroughReferencesToVariants) {
  for (const auto& [type, value] : typed_values) {
    SCOPED_TRACE(type);
    Variant variant(value, Role::caller);
    VARIANT outer = reference(variant.raw());
    EXPECT_EQ(value_in(outer), value);
    EXPECT_EQ(value_in(reference(outer)), value);
  }
}

TEST(ComVariant, IsReadThroughTypedReferences) {
  for (const auto& [type, value] : typed_values) {
    if (type == VT_EMPTY || type == VT_NULL) continue;
    SCOPED_TRACE(type);
    Variant variant(value, Role::caller);
    void* content =
        type == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(&variant.raw())) : &V_NONE(&variant.raw());
    VARIANT outer = reference(type, content);
    EXPECT_EQ(value_in(outer), value);
    EXPECT_EQ(value_in(reference(outer)), value);
  }
}

std::int32_t error_number(const VARIANT& variant) {
  try {
    value_in(variant);
    return 0;
  } catch (const Error& error) {
    return error.number();
  }
}

TEST(ComVariant, WhatIsNoVariantIsRefused) {
  VARIANT itself;
  V_VT(&itself) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&itself) = &itself;
  EXPECT_EQ(error_number(itself), 458);

  EXPECT_EQ(error_number(reference(VT_VARIANT, nullptr)), E_POINTER);
  for (const VARTYPE type : {VT_BSTR, VT_I2, VT_R8, VT_DISPATCH, VT_UNKNOWN, VT_DECIMAL, VT_ERROR})
    EXPECT_EQ(error_number(reference(type, nullptr)), E_POINTER) << type;

  VARIANT nonsense{};
  V_VT(&nonsense) = 0x0FFF;
  EXPECT_EQ(error_number(nonsense), 458);

  Variant decimal(Decimal(1), Role::caller);
  V_DECIMAL(&decimal.raw()).scale = 29;
  EXPECT_EQ(error_number(decimal.raw()), 458);
}

}  // namespace
}  // namespace tallyra::tests::com
