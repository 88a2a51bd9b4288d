#include <gtest/gtest.h>

#include <thread>

#include "tests/com/business_objects.h"
#include "tests/com/test_classes.h"
#include "tests/com/wire_call.h"

// Business objects called by name.
namespace tallyra::tests::com {
namespace {

constexpr DISPID read_id = 11;
constexpr DISPID valid_close_id = 15;
constexpr DISPID reference_quantities_id = 17;
constexpr DISPID order_exam_id = 18;
constexpr DISPID type_exam_id = 19;

DISPID id_of(IDispatch* object, const wchar_t* name) {
  LPOLESTR names = const_cast<LPOLESTR>(name);
  DISPID id = 99;
  const HRESULT code = object->GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
  EXPECT_EQ(code, id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK);
  return id;
}

TEST(ComDispatch, NamesAreFoundWhateverTheirCaseWithThoseOfTheParameters) {
  const auto detail = new_detail();
  EXPECT_EQ(id_of(detail.get(), L"read"), read_id);
  EXPECT_EQ(id_of(detail.get(), L"ErrNumber"), 3);
  EXPECT_EQ(id_of(detail.get(), L"NoSuchMember"), DISPID_UNKNOWN);

  LPOLESTR names[] = {const_cast<LPOLESTR>(L"PORefQty"), const_cast<LPOLESTR>(L"CTYPE"),
                      const_cast<LPOLESTR>(L"cReference"), const_cast<LPOLESTR>(L"nothing")};
  DISPID ids[4];
  EXPECT_EQ(detail->GetIDsOfNames(IID_NULL, names, 3, 0, ids), S_OK);
  EXPECT_EQ(ids[0], reference_quantities_id);
  EXPECT_EQ(ids[1], 5);
  EXPECT_EQ(ids[2], 0);
  EXPECT_EQ(detail->GetIDsOfNames(IID_NULL, names, 4, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[3], DISPID_UNKNOWN);
}

// The type library knows them too: every interface inherits them.
TEST(ComDispatch, WhatEveryInterfaceInheritsIsNoMember) {
  const auto detail = new_detail();
  const auto close = new_close();
  for (const wchar_t* name : {L"QueryInterface", L"AddRef", L"release", L"GetTypeInfoCount", L"GetTypeInfo",
                              L"GetIDsOfNames", L"Invoke"}) {
    EXPECT_EQ(id_of(detail.get(), name), DISPID_UNKNOWN) << testing::PrintToString(name);
    EXPECT_EQ(id_of(close.get(), name), DISPID_UNKNOWN) << testing::PrintToString(name);
  }
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"QueryInterface"), const_cast<LPOLESTR>(L"riid")};
  DISPID ids[2];
  EXPECT_EQ(detail->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], DISPID_UNKNOWN);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
  for (const DISPID id : {0x60000000, 0x60000001, 0x60010000, 0x60010003}) {
    WireCall call{.id = id};
    EXPECT_EQ(call.on(detail.get()), DISP_E_MEMBERNOTFOUND) << id;
  }
}

TEST(ComDispatch, ScriptVariablesComeBackReplaced) {
  const auto detail = new_detail();
  Variant number(Value("A1"), Role::caller);
  Variant reference_text(Value(std::int16_t{7}), Role::caller);
  Variant part;
  Variant names;
  const auto collection = client_collection();
  Variant values;
  V_VT(&values.raw()) = VT_DISPATCH;
  V_DISPATCH(&values.raw()) = Pointer<IDispatch>(collection).detach();
  WireCall call{.id = read_id,
                .arguments = {reference(number.raw()), reference(reference_text.raw()), reference(part.raw()),
                              reference(names.raw()), reference(values.raw())}};
  ASSERT_EQ(call.on(detail.get()), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value(100.0F));
  EXPECT_EQ(value_in(number.raw()), Value("A1!"));
  EXPECT_EQ(value_in(reference_text.raw()), Value("7!"));
  EXPECT_EQ(value_in(part.raw()), Value("!"));
  EXPECT_EQ(value_in(names.raw()).get_if<automation::Object>()->get("Count"), Value(1));
  EXPECT_EQ(V_DISPATCH(&values.raw()), collection.get());
  EXPECT_EQ(TestDetail::last_sn, -1) << "what an omitted number stands for";
}

TEST(ComDispatch, TypedVariablesComeBackReplaced) {
  const auto detail = new_detail();
  BSTR text = SysAllocString(L"PO1");
  LONG sn = 4;
  double ordered = 0;
  float received = 0;
  LONG returned = 0;
  WireCall call{.id = reference_quantities_id,
                .arguments = {reference(VT_BSTR, &text), reference(VT_I4, &sn), reference(VT_R8, &ordered),
                              reference(VT_R4, &received), reference(VT_I4, &returned)}};
  ASSERT_EQ(call.on(detail.get()), S_OK);
  EXPECT_EQ(ordered, 1.5);
  EXPECT_EQ(received, 2.5F);
  EXPECT_EQ(returned, -4) << "halves go to the even neighbour";
  EXPECT_EQ(value_in(call.result.raw()), Value(0.0)) << "cType was left out";
  SysFreeString(text);
}

TEST(ComDispatch, AnOmittedOptionalIsAbsentOrAnErrorVariantOrASharedOne) {
  const auto detail = new_detail();
  VARIANT shared = left_out();
  for (const auto& last : {std::vector<VARIANTARG>{}, {left_out()}, {reference(shared)}}) {
    TestDetail::last_sn = 0;
    VARIANTARG nothing;
    V_VT(&nothing) = VT_EMPTY;
    WireCall call{.id = read_id, .arguments = std::vector<VARIANTARG>(5, nothing)};
    call.arguments.insert(call.arguments.end(), last.begin(), last.end());
    ASSERT_EQ(call.on(detail.get()), S_OK);
    EXPECT_EQ(TestDetail::last_sn, -1);
    EXPECT_EQ(V_VT(&shared), VT_ERROR);
    EXPECT_EQ(V_ERROR(&shared), DISP_E_PARAMNOTFOUND);
  }
}

TEST(ComDispatch, NamedArgumentsReachTheirParametersBesideThoseByPosition) {
  const auto detail = new_detail();
  double ordered = 0;
  const Variant type(Value("PO"), Role::caller);
  const Variant text(Value("PO1"), Role::caller);
  const Variant sn(Value(1), Role::caller);
  double unused = 0;
  // On the wire: the named ones first, then the positional ones backwards.
  WireCall call{.id = reference_quantities_id,
                .arguments = {text.raw(), sn.raw(), reference(VT_R8, &unused), reference(VT_R8, &unused),
                              reference(VT_R8, &ordered), type.raw()},
                .names = {5, 4}};
  ASSERT_EQ(call.on(detail.get()), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value(100.0)) << "cType arrived";
  EXPECT_EQ(ordered, -3.5) << "nRtnQty arrived";

  WireCall unknown{.id = type_exam_id, .arguments = {text.raw()}, .names = {1}};
  EXPECT_EQ(unknown.on(detail.get()), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(unknown.argument_at_fault, 0U);
  WireCall second{
      .id = reference_quantities_id, .arguments = {text.raw(), sn.raw(), text.raw()}, .names = {1, 9}};
  EXPECT_EQ(second.on(detail.get()), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(second.argument_at_fault, 1U) << "counted as on the wire";
  WireCall negative{.id = type_exam_id, .arguments = {text.raw()}, .names = {-7}};
  EXPECT_EQ(negative.on(detail.get()), DISP_E_PARAMNOTFOUND);
  WireCall twice{.id = reference_quantities_id, .arguments = {text.raw(), sn.raw()}, .names = {0, 0}};
  EXPECT_EQ(twice.on(detail.get()), E_INVALIDARG);
}

TEST(ComDispatch, AWrongArgumentNamesItself) {
  const auto detail = new_detail();
  const Variant text(Value("x"), Role::caller);
  const Variant null(automation::Null{}, Role::caller);
  const Variant big(Value("99999999999"), Role::caller);
  struct Case {
    std::vector<VARIANTARG> arguments;
    HRESULT code;
    UINT index;
  };
  const Case cases[] = {
      {{text.raw(), null.raw(), text.raw(), text.raw(), text.raw()}, DISP_E_TYPEMISMATCH, 3},
      {{text.raw(), text.raw(), text.raw(), text.raw(), text.raw()}, DISP_E_TYPEMISMATCH, 1},
      {{text.raw(), text.raw(), text.raw(), left_out(), text.raw()}, DISP_E_PARAMNOTOPTIONAL, 1},
      {{text.raw(), reference(VT_BSTR, nullptr)}, E_POINTER, 0},
  };
  for (const auto& each : cases) {
    WireCall call{.id = read_id, .arguments = each.arguments};
    EXPECT_EQ(call.on(detail.get()), each.code);
    EXPECT_EQ(call.argument_at_fault, each.index);
  }
  WireCall overflow{.id = reference_quantities_id, .arguments = {text.raw(), big.raw()}};
  EXPECT_EQ(overflow.on(detail.get()), DISP_E_OVERFLOW);
  EXPECT_EQ(overflow.argument_at_fault, 0U);
  WireCall none{.id = read_id};
  EXPECT_EQ(none.on(detail.get()), DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(none.argument_at_fault, 77U) << "an absent argument has no place in the list";
  WireCall many{.id = type_exam_id, .arguments = {text.raw(), text.raw()}};
  EXPECT_EQ(many.on(detail.get()), DISP_E_BADPARAMCOUNT);
}

TEST(ComDispatch, AnArrayIsNoTextAndNoCollection) {
  const auto detail = new_detail();
  Variant array;
  V_VT(&array.raw()) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(&array.raw()) = SafeArrayCreateVector(VT_VARIANT, 0, 3);
  const Variant text(Value("x"), Role::caller);
  WireCall as_text{.id = type_exam_id, .arguments = {array.raw()}};
  EXPECT_EQ(as_text.on(detail.get()), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(as_text.argument_at_fault, 0U);
  WireCall by_reference{.id = type_exam_id,
                        .arguments = {reference(VT_ARRAY | VT_VARIANT, &V_ARRAY(&array.raw()))}};
  EXPECT_EQ(by_reference.on(detail.get()), DISP_E_TYPEMISMATCH);
  WireCall as_collection{
      .id = read_id, .arguments = {text.raw(), text.raw(), text.raw(), reference(array.raw()), text.raw()}};
  EXPECT_EQ(as_collection.on(detail.get()), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(as_collection.argument_at_fault, 1U);
}

TEST(ComDispatch, PropertiesArePutInEveryWayAndReadByMethodOrGet) {
  const auto head = new_head();
  const WORD ways[] = {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF,
                       WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}};
  int round = 0;
  for (const WORD flags : ways)
    for (const auto& names : {std::vector<DISPID>{DISPID_PROPERTYPUT}, {}}) {
      const std::string user = "user" + std::to_string(++round);
      Variant value(Value(user), Role::caller);
      WireCall put{.id = 5, .flags = flags, .arguments = {reference(value.raw())}, .names = names};
      ASSERT_EQ(put.on(head.get()), S_OK);
      Variant tag;
      const Variant text(Value("n"), Role::caller);
      VARIANTARG nothing;
      V_VT(&nothing) = VT_EMPTY;
      WireCall call{.id = 12, .arguments = {text.raw(), text.raw(), nothing, nothing, reference(tag.raw())}};
      ASSERT_EQ(call.on(head.get()), S_OK);
      EXPECT_EQ(value_in(tag.raw()), Value(user));
    }
  for (const WORD flags : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET}, WORD{3}}) {
    WireCall get{.id = 3, .flags = flags};
    EXPECT_EQ(get.on(head.get()), S_OK);
    EXPECT_EQ(value_in(get.result.raw()), Value(0.0F));
  }
  WireCall unreadable{.id = 5};
  EXPECT_EQ(unreadable.on(head.get()), DISP_E_MEMBERNOTFOUND);
  const Variant value(Value(1), Role::caller);
  WireCall unwritable{.id = 3, .flags = DISPATCH_PROPERTYPUT, .arguments = {value.raw()}};
  EXPECT_EQ(unwritable.on(head.get()), DISP_E_MEMBERNOTFOUND);
}

TEST(ComDispatch, WhatIsDeclaredButNotYetThereIsNotImplemented) {
  const auto detail = new_detail();
  EXPECT_EQ(id_of(detail.get(), L"UpdateRTN"), 16);
  WireCall declared{.id = 16};
  EXPECT_EQ(declared.on(detail.get()), E_NOTIMPL);
  const auto close = new_close();
  EXPECT_EQ(id_of(close.get(), L"Language"), 1);
  WireCall member{.id = 1, .flags = DISPATCH_PROPERTYPUT};
  EXPECT_EQ(member.on(close.get()), E_NOTIMPL);
  WireCall undeclared{.id = 1000};
  EXPECT_EQ(undeclared.on(close.get()), DISP_E_MEMBERNOTFOUND);
}

TEST(ComDispatch, AnErrorThatLeavesAMethodIsDescribed) {
  const auto head = new_head();
  const Variant text(Value("x"), Role::caller);
  WireCall call{.id = valid_close_id, .arguments = {text.raw()}};
  EXPECT_EQ(call.on(head.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(call.failure.scode, static_cast<SCODE>(0x800A0E7D));
  EXPECT_EQ(call.failure.wCode, 0);
  EXPECT_STREQ(call.failure.bstrSource, L"Tallyra.CTranHead");
  EXPECT_STREQ(call.failure.bstrDescription, L"the connection is closed");
  EXPECT_EQ(call.argument_at_fault, 77U);
}

TEST(ComDispatch, AClientNeedNotWantTheResultTheDescriptionOrTheArgumentAtFault) {
  const auto detail = new_detail();
  const auto head = new_head();
  const Variant text(Value("x"), Role::caller);
  const Variant null(automation::Null{}, Role::caller);
  for (const Wanted& wanted : all_wishes()) {
    Variant replaced(Value("A1"), Role::caller);
    VARIANTARG nothing;
    V_VT(&nothing) = VT_EMPTY;
    WireCall done{.id = read_id,
                  .arguments = {reference(replaced.raw()), nothing, nothing, nothing, nothing}};
    EXPECT_EQ(done.on(detail.get(), wanted), S_OK);
    EXPECT_EQ(value_in(replaced.raw()), Value("A1!"));
    EXPECT_EQ(value_in(done.result.raw()), wanted.result ? Value(100.0F) : Value());

    WireCall raised{.id = valid_close_id, .arguments = {text.raw()}};
    EXPECT_EQ(raised.on(head.get(), wanted),
              wanted.failure ? DISP_E_EXCEPTION : static_cast<HRESULT>(0x800A0E7D));
    EXPECT_EQ(raised.failure.bstrDescription != nullptr, wanted.failure);

    WireCall mismatch{.id = type_exam_id, .arguments = {null.raw()}};
    EXPECT_EQ(mismatch.on(detail.get(), wanted), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(mismatch.argument_at_fault, wanted.argument_at_fault ? 0U : 77U);
    WireCall unknown{.id = type_exam_id, .arguments = {text.raw()}, .names = {1}};
    EXPECT_EQ(unknown.on(detail.get(), wanted), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(unknown.argument_at_fault, wanted.argument_at_fault ? 0U : 77U);
    WireCall missing{.id = 1000};
    EXPECT_EQ(missing.on(detail.get(), wanted), DISP_E_MEMBERNOTFOUND);
  }
}

TEST(ComDispatch, EveryTextArrivesAndReturnsWhole) {
  const auto detail = new_detail();
  for (const std::string& text :
       {std::string(), std::string("a\0b", 3), std::string("\xED\xA0\xBD"), std::string(10'000'000, 'x')}) {
    const Variant argument(Value(text), Role::caller);
    WireCall call{.id = type_exam_id, .arguments = {argument.raw()}};
    ASSERT_EQ(call.on(detail.get()), S_OK);
    EXPECT_TRUE(value_in(call.result.raw()) == Value(text)) << text.size();
  }
}

TEST(ComDispatch, CallsFromTheMessageLoopOfARunningMethodAreAnswered) {
  const auto detail = new_detail();
  const Variant text(Value("x"), Role::caller);
  int turns = 0;
  TestDetail::during_call = [&] {
    if (++turns == 3) return;
    WireCall put{.id = 1, .flags = DISPATCH_PROPERTYPUT, .arguments = {text.raw()}};
    EXPECT_EQ(put.on(detail.get()), S_OK);
    WireCall get{.id = 3};
    EXPECT_EQ(get.on(detail.get()), S_OK);
    WireCall method{.id = type_exam_id, .arguments = {text.raw()}};
    EXPECT_EQ(method.on(detail.get()), S_OK);
    EXPECT_EQ(value_in(method.result.raw()), Value("x"));
    WireCall same{.id = order_exam_id, .arguments = {text.raw()}};
    EXPECT_EQ(same.on(detail.get()), S_OK) << "a method within itself";
    EXPECT_EQ(value_in(same.result.raw()), Value(std::int16_t{1}));
  };
  WireCall outer{.id = order_exam_id, .arguments = {text.raw()}};
  EXPECT_EQ(outer.on(detail.get()), S_OK);
  EXPECT_EQ(value_in(outer.result.raw()), Value(std::int16_t{1}));
  TestDetail::during_call = nullptr;
  EXPECT_EQ(turns, 3);
}

TEST(ComDispatch, AnObjectLivesToTheEndOfItsRunningMethod) {
  IDispatch* detail = new_detail().detach();
  TestDetail::during_call = [detail] { detail->Release(); };
  const Variant text(Value("x"), Role::caller);
  WireCall call{.id = order_exam_id, .arguments = {text.raw()}};
  EXPECT_EQ(call.on(detail), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value(std::int16_t{1}));
  TestDetail::during_call = nullptr;
  EXPECT_EQ(automation::com::module_uses(), 0);
}

TEST(ComDispatch, CallsFromAForeignThreadAreRefused) {
  const auto detail = new_detail();
  HRESULT code = S_OK;
  std::thread([&] {
    WireCall call{.id = 3};
    code = call.on(detail.get());
  }).join();
  EXPECT_EQ(code, RPC_E_WRONG_THREAD);
}

}  // namespace
}  // namespace tallyra::tests::com
