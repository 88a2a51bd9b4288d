#include "automation/com/opaque_variant.h"

#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/error.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Error;
using automation::Opaque;

Variant number_of_type(VARTYPE type, LONGLONG number) {
  Variant variant;
  V_I8(&variant.raw()) = number;
  V_VT(&variant.raw()) = type;
  return variant;
}

TEST(OpaqueVariant, RareNumbersKeepTheirTypeAndConvertLikeNumbers) {
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

TEST(OpaqueVariant, AnArrayTravelsThroughUnchanged) {
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

TEST(OpaqueVariant, AnObjectWithoutMembersTravelsThroughUnchanged) {
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

TEST(OpaqueVariant, AnErrorCodeTravelsThroughUnchanged) {
  Variant variant;
  V_VT(&variant.raw()) = VT_ERROR;
  V_ERROR(&variant.raw()) = DISP_E_OVERFLOW;
  const Variant again(value_in(variant.raw()), Role::caller);
  EXPECT_EQ(V_VT(&again.raw()), VT_ERROR);
  EXPECT_EQ(V_ERROR(&again.raw()), DISP_E_OVERFLOW);
}

}  // namespace
}  // namespace tallyra::tests::com
