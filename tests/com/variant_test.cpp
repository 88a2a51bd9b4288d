#include "automation/com/variant.h"

#include <gtest/gtest.h>

#include "automation/bytes.h"
#include "automation/com/opaque_variant.h"
#include "automation/convert.h"
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
using automation::Opaque;
using automation::com::value_of;

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

Variant number_of_type(VARTYPE type, LONGLONG number) {
  Variant variant;
  V_I8(&variant.raw()) = number;
  V_VT(&variant.raw()) = type;
  return variant;
}

TEST(ComVariant, RareNumbersKeepTheirTypeAndConvertLikeNumbers) {
  struct Case {
    VARTYPE type;
    LONGLONG content;
    const char* text;
  };
  const Case cases[] = {
      {VT_I1, -128, "-128"},
      {VT_UI2, 65535, "65535"},
      {VT_UI4, 0xFFFFFFFF, "4294967295"},
      {VT_UI8, -1, "18446744073709551615"},
      {VT_INT, -5, "-5"},
      {VT_UINT, 0xFFFFFFFE, "4294967294"},
  };
  for (const auto& [type, content, text] : cases) {
    SCOPED_TRACE(type);
    const Variant variant = number_of_type(type, content);
    const Value value = value_in(variant.raw());
    EXPECT_EQ(automation::to_text(value), text);
    const Variant again(value, Role::caller);
    EXPECT_EQ(V_VT(&again.raw()), type);
    EXPECT_EQ(automation::to_text(value_in(again.raw())), text);
  }
}

TEST(ComVariant, AnArrayTravelsThroughUnchanged) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 3, 2);
  ASSERT_NE(array, nullptr);
  for (LONG i = 3; i < 5; ++i) {
    LONG element = i * 10;
    ASSERT_EQ(SafeArrayPutElement(array, &i, &element), S_OK);
  }
  Variant variant;
  V_VT(&variant.raw()) = VT_ARRAY | VT_I4;
  V_ARRAY(&variant.raw()) = array;

  const Value value = value_in(variant.raw());
  ASSERT_TRUE(value.holds<Opaque>());
  EXPECT_EQ(value.get_if<Opaque>()->get()->kind(), "array");
  EXPECT_THROW(automation::to_text(value), Error);

  const Variant again(value, Role::caller);
  ASSERT_EQ(V_VT(&again.raw()), VT_ARRAY | VT_I4);
  LONG index = 4;
  LONG element = 0;
  ASSERT_EQ(SafeArrayGetElement(V_ARRAY(&again.raw()), &index, &element), S_OK);
  EXPECT_EQ(element, 40);
}

TEST(ComVariant, BytesAreArraysCountedFromZero) {
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

TEST(ComVariant, BytesOfAnotherShapeKeepIt) {
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

// An object that nobody can call by name.
class Unnamed : public IUnknown {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown ? this : nullptr;
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  ULONG references = 1;
};

TEST(ComVariant, AnObjectWithoutMembersTravelsThroughUnchanged) {
  Unnamed object;
  IUnknown* variable = &object;
  VARIANT by_value{};
  V_VT(&by_value) = VT_UNKNOWN;
  V_UNKNOWN(&by_value) = variable;
  for (const VARIANT& wire : {by_value, reference(by_value), reference(VT_UNKNOWN, &variable)}) {
    SCOPED_TRACE(V_VT(&wire));
    {
      const Value value = value_in(wire);
      ASSERT_TRUE(value.holds<Opaque>());
      EXPECT_EQ(object.references, 2U) << "the value keeps it alive by itself";
      const Variant again(value, Role::caller);
      EXPECT_EQ(V_VT(&again.raw()), VT_UNKNOWN);
      EXPECT_EQ(V_UNKNOWN(&again.raw()), variable);
      EXPECT_EQ(object.references, 3U);
    }
    EXPECT_EQ(object.references, 1U);
  }
}

TEST(ComVariant, AnErrorCodeTravelsThroughUnchanged) {
  Variant variant;
  V_VT(&variant.raw()) = VT_ERROR;
  V_ERROR(&variant.raw()) = DISP_E_OVERFLOW;
  const Variant again(value_in(variant.raw()), Role::caller);
  EXPECT_EQ(V_VT(&again.raw()), VT_ERROR);
  EXPECT_EQ(V_ERROR(&again.raw()), DISP_E_OVERFLOW);
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
