#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "automation/com/object_passage.h"
#include "tests/com/echo_object.h"
#include "tests/com/wire_call.h"

// What arrives from each form of an argument, and where a replaced one goes.
namespace tallyra::tests::com {
namespace {

using automation::Missing;
using automation::Object;
using automation::com::ComObject;

class ReferenceForm : public testing::Test {
 protected:
  EchoObject* echo_ = new EchoObject;
  Object holder_{echo_};
  automation::com::Pointer<IDispatch> object_ = ComObject::make(holder_, Role::callee);

  HRESULT replace(VARIANTARG argument, Value replacement) {
    echo_->replacement = std::move(replacement);
    WireCall call{.id = 1, .arguments = {argument}};
    const HRESULT code = call.on(object_.get());
    argument_at_fault_ = call.argument_at_fault;
    return code;
  }

  UINT argument_at_fault_ = 77;
};

TEST_F(ReferenceForm, AVariantVariableTakesTheNewValueWhateverItHeld) {
  for (const Value& before : {Value(), Value("old"), Value(std::int16_t{7}), Value(Object())}) {
    Variant variable(before, Role::caller);
    ASSERT_EQ(replace(reference(variable.raw()), 2.5), S_OK);
    EXPECT_EQ(echo_->received[0], before);
    EXPECT_EQ(value_in(variable.raw()), Value(2.5));
  }
}

TEST_F(ReferenceForm, NestedReferencesReachTheInnermostVariable) {
  Variant variable(Value("old"), Role::caller);
  VARIANT inner = reference(variable.raw());
  ASSERT_EQ(replace(reference(inner), "new"), S_OK);
  EXPECT_EQ(echo_->received[0], Value("old"));
  EXPECT_EQ(value_in(variable.raw()), Value("new"));
  EXPECT_EQ(V_VT(&inner), VT_BYREF | VT_VARIANT);

  BSTR text = SysAllocString(L"typed");
  VARIANT typed = reference(VT_BSTR, &text);
  ASSERT_EQ(replace(reference(typed), "longer than before"), S_OK);
  EXPECT_EQ(echo_->received[0], Value("typed"));
  EXPECT_STREQ(text, L"longer than before");
  EXPECT_EQ(V_VT(&typed), VT_BYREF | VT_BSTR);
  SysFreeString(text);
}

TEST_F(ReferenceForm, ATypedVariableTakesTheNewValueConverted) {
  const Value twelve("12");
  BSTR text = nullptr;
  ASSERT_EQ(replace(reference(VT_BSTR, &text), 12.5), S_OK);
  EXPECT_STREQ(text, L"12.5");
  SysFreeString(text);
  SHORT int16 = 1;
  ASSERT_EQ(replace(reference(VT_I2, &int16), twelve), S_OK);
  EXPECT_EQ(int16, 12);
  LONG int32 = 1;
  ASSERT_EQ(replace(reference(VT_I4, &int32), twelve), S_OK);
  EXPECT_EQ(int32, 12);
  BYTE byte = 1;
  ASSERT_EQ(replace(reference(VT_UI1, &byte), twelve), S_OK);
  EXPECT_EQ(byte, 12);
  float single = 1;
  ASSERT_EQ(replace(reference(VT_R4, &single), twelve), S_OK);
  EXPECT_EQ(single, 12.0F);
  double number = 1;
  ASSERT_EQ(replace(reference(VT_R8, &number), twelve), S_OK);
  EXPECT_EQ(number, 12.0);
  DATE date = 1;
  ASSERT_EQ(replace(reference(VT_DATE, &date), "2024/03/07"), S_OK);
  EXPECT_EQ(date, 45358.0);
  CY currency{};
  ASSERT_EQ(replace(reference(VT_CY, &currency), 1.23456), S_OK);
  EXPECT_EQ(currency.int64, 12346);
  DECIMAL decimal{};
  ASSERT_EQ(replace(reference(VT_DECIMAL, &decimal), "-1.5"), S_OK);
  EXPECT_EQ(decimal.Lo32, 15U);
  EXPECT_EQ(decimal.scale, 1);
  EXPECT_EQ(decimal.sign, DECIMAL_NEG);
  VARIANT_BOOL boolean = VARIANT_FALSE;
  ASSERT_EQ(replace(reference(VT_BOOL, &boolean), true), S_OK);
  EXPECT_EQ(boolean, VARIANT_TRUE);
}

TEST_F(ReferenceForm, TheRareKindsOfWholeNumbersTakeTheNewValueToo) {
  const Value twelve("12");
  signed char int8 = 1;
  ASSERT_EQ(replace(reference(VT_I1, &int8), -12.0), S_OK);
  EXPECT_EQ(int8, -12);
  EXPECT_EQ(replace(reference(VT_I1, &int8), 128), DISP_E_EXCEPTION);
  EXPECT_EQ(int8, -12);
  USHORT uint16 = 1;
  ASSERT_EQ(replace(reference(VT_UI2, &uint16), 65535), S_OK);
  EXPECT_EQ(uint16, 65535);
  EXPECT_EQ(replace(reference(VT_UI2, &uint16), -1), DISP_E_EXCEPTION);
  for (const VARTYPE type : {VT_UI4, VT_UINT}) {
    ULONG uint32 = 1;
    ASSERT_EQ(replace(reference(type, &uint32), "4294967295"), S_OK);
    EXPECT_EQ(uint32, 4294967295U);
    ASSERT_EQ(replace(reference(type, &uint32), twelve), S_OK);
    EXPECT_EQ(uint32, 12U);
    EXPECT_EQ(replace(reference(type, &uint32), "no number"), DISP_E_EXCEPTION);
  }
  LONGLONG int64 = 1;
  ASSERT_EQ(replace(reference(VT_I8, &int64), std::int64_t{-9007199254740993}), S_OK);
  EXPECT_EQ(int64, -9007199254740993) << "more than a double holds";
  ASSERT_EQ(replace(reference(VT_I8, &int64), "9007199254740993"), S_OK);
  EXPECT_EQ(int64, 9007199254740993);
  ASSERT_EQ(replace(reference(VT_I8, &int64), true), S_OK);
  EXPECT_EQ(int64, -1);
  ULONGLONG uint64 = 1;
  ASSERT_EQ(replace(reference(VT_UI8, &uint64), *automation::Decimal::parse("18446744073709551615")), S_OK);
  EXPECT_EQ(uint64, 18446744073709551615U);
}

TEST_F(ReferenceForm, WhatFitsIsWrittenThoughSomethingBeforeItDoesNot) {
  SHORT first = 1;
  LONG second = 2;
  SHORT third = 3;
  echo_->replacement = 70000;
  WireCall call{.id = 1,
                .arguments = {reference(VT_I2, &first), reference(VT_I4, &second), reference(VT_I2, &third)}};
  EXPECT_EQ(call.on(object_.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(call.failure.scode, automation::hresult_of_raised(automation::error_number::overflow));
  EXPECT_EQ(call.argument_at_fault, 2U) << "the first one that does not fit";
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 70000);
  EXPECT_EQ(third, 3);
}

TEST_F(ReferenceForm, AValueThatDoesNotFitNamesItsArgument) {
  SHORT small = 3;
  EXPECT_EQ(replace(reference(VT_I2, &small), 70000), DISP_E_EXCEPTION);
  EXPECT_EQ(argument_at_fault_, 0U);
  EXPECT_EQ(small, 3);
  EXPECT_EQ(replace(reference(VT_I2, &small), "no number"), DISP_E_EXCEPTION);
  EXPECT_EQ(small, 3);
}

TEST_F(ReferenceForm, AnArgumentByValueStaysAsItIs) {
  const Variant literal(Value("old"), Role::caller);
  ASSERT_EQ(replace(literal.raw(), "new"), S_OK);
  EXPECT_EQ(echo_->received[0], Value("old"));
  EXPECT_EQ(value_in(literal.raw()), Value("old"));
}

TEST_F(ReferenceForm, ALeftOutArgumentIsNeverWrittenTo) {
  ASSERT_EQ(replace(left_out(), "new"), S_OK);
  EXPECT_EQ(echo_->received[0], Value(Missing{}));

  VARIANT shared = left_out();
  ASSERT_EQ(replace(reference(shared), "new"), S_OK);
  EXPECT_EQ(V_VT(&shared), VT_ERROR);
  EXPECT_EQ(V_ERROR(&shared), DISP_E_PARAMNOTFOUND);

  SCODE code = DISP_E_PARAMNOTFOUND;
  ASSERT_EQ(replace(reference(VT_ERROR, &code), "new"), S_OK);
  EXPECT_EQ(code, DISP_E_PARAMNOTFOUND);
}

ULONG references_of(IUnknown* object) {
  object->AddRef();
  return object->Release();
}

TEST_F(ReferenceForm, AReplacedObjectIsReleasedOnceAndOneByValueNotAtAll) {
  const auto collection = ComObject::make(automation::make_object<automation::Collection>(), Role::caller);
  const Value replacement(automation::make_object<automation::Collection>());

  IDispatch* variable = collection.get();
  variable->AddRef();
  ASSERT_EQ(references_of(collection.get()), 2U);
  ASSERT_EQ(replace(reference(VT_DISPATCH, &variable), replacement), S_OK);
  EXPECT_NE(variable, collection.get());
  echo_->received.clear();
  EXPECT_EQ(references_of(collection.get()), 1U);
  variable->Release();

  Variant in_variant;
  V_VT(&in_variant.raw()) = VT_DISPATCH;
  V_DISPATCH(&in_variant.raw()) = automation::com::Pointer<IDispatch>(collection).detach();
  ASSERT_EQ(replace(reference(in_variant.raw()), replacement), S_OK);
  echo_->received.clear();
  EXPECT_EQ(references_of(collection.get()), 1U);

  VARIANTARG by_value;
  V_VT(&by_value) = VT_DISPATCH;
  V_DISPATCH(&by_value) = collection.get();
  ASSERT_EQ(replace(by_value, replacement), S_OK);
  EXPECT_EQ(V_DISPATCH(&by_value), collection.get());
  echo_->received.clear();
  EXPECT_EQ(references_of(collection.get()), 1U);
}

TEST_F(ReferenceForm, AnObjectBehindIUnknownIsAnObject) {
  const auto collection = ComObject::make(automation::make_object<automation::Collection>(), Role::caller);
  IUnknown* variable = automation::com::Pointer<IUnknown>(collection.get()).detach();
  ASSERT_EQ(replace(reference(VT_UNKNOWN, &variable), Object()), S_OK);
  EXPECT_TRUE(echo_->received[0].is_object());
  EXPECT_EQ(variable, nullptr);
}

TEST_F(ReferenceForm, WhatWasSetBeforeAFailureIsSet) {
  Variant variable(Value("old"), Role::caller);
  echo_->replacement = "new";
  WireCall call{.id = 3, .arguments = {reference(variable.raw())}};
  EXPECT_EQ(call.on(object_.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(call.failure.scode, static_cast<SCODE>(0x800A0E78));
  EXPECT_STREQ(call.failure.bstrDescription, L"closed");
  EXPECT_EQ(value_in(variable.raw()), Value("new"));
}

TEST_F(ReferenceForm, AFailureIsToldThoughWhatWasSetDoesNotFit) {
  SHORT variable = 1;
  echo_->replacement = 70000;
  WireCall call{.id = 3, .arguments = {reference(VT_I2, &variable)}};
  EXPECT_EQ(call.on(object_.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(call.failure.scode, static_cast<SCODE>(0x800A0E78));
  EXPECT_EQ(variable, 1);
}

TEST_F(ReferenceForm, TakesTheNewValueWhateverTheCallerWantsToBeTold) {
  constexpr auto closed = static_cast<HRESULT>(0x800A0E78);
  echo_->replacement = "new";
  for (const Wanted& wanted : all_wishes()) {
    Variant variable(Value("old"), Role::caller);
    WireCall done{.id = 1, .arguments = {reference(variable.raw())}};
    EXPECT_EQ(done.on(object_.get(), wanted), S_OK);
    EXPECT_EQ(value_in(variable.raw()), Value("new"));
    EXPECT_EQ(value_in(done.result.raw()), wanted.result ? Value("old") : Value());

    Variant of_failure(Value("old"), Role::caller);
    WireCall raised{.id = 3, .arguments = {reference(of_failure.raw())}};
    EXPECT_EQ(raised.on(object_.get(), wanted), wanted.failure ? DISP_E_EXCEPTION : closed);
    EXPECT_EQ(raised.failure.bstrDescription != nullptr, wanted.failure);
    EXPECT_EQ(value_in(of_failure.raw()), Value("new"));

    SHORT small = 1;
    WireCall unfit{.id = 1, .arguments = {reference(VT_I2, &small)}};
    EXPECT_EQ(unfit.on(object_.get(), wanted), wanted.failure ? DISP_E_EXCEPTION : DISP_E_TYPEMISMATCH);
    EXPECT_EQ(unfit.argument_at_fault, wanted.argument_at_fault ? 0U : 77U);
    WireCall missing{.id = 1000};
    EXPECT_EQ(missing.on(object_.get(), wanted), DISP_E_MEMBERNOTFOUND);
  }
}

TEST_F(ReferenceForm, AnEnumeratorThatNobodyWantsIsNotMade) {
  const auto list = ComObject::make(automation::make_object<automation::Collection>(), Role::callee);
  for (const Wanted& wanted : all_wishes()) {
    WireCall walk{.id = DISPID_NEWENUM};
    EXPECT_EQ(walk.on(list.get(), wanted), S_OK);
    EXPECT_EQ(V_VT(&walk.result.raw()), wanted.result ? VT_UNKNOWN : VT_EMPTY);
  }
}

}  // namespace
}  // namespace tallyra::tests::com
