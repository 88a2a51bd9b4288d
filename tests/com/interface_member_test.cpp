#include <gtest/gtest.h>

#include "automation/com/text.h"
#include "tests/com/business_objects.h"
#include "tests/com/test_classes.h"
#include "tests/com/wire_call.h"

// Business objects called through their interfaces, as compiled clients do.
namespace tallyra::tests::com {
namespace {

// A text that the callee may replace.
class Text {
 public:
  explicit Text(const wchar_t* content) : bstr_(SysAllocString(content)) {}
  ~Text() { SysFreeString(bstr_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  BSTR* in_out() { return &bstr_; }
  BSTR in() const { return bstr_; }
  std::string content() const { return automation::com::text_of(bstr_); }

 private:
  BSTR bstr_;
};

TEST(InterfaceMember, ReplacesWhatItWasGivenByReference) {
  const auto detail = new_detail();
  Text number(L"A1");
  Text reference_text(L"");
  BSTR null_text = nullptr;
  const auto collection = client_collection();
  IDispatch* names = Pointer<IDispatch>(collection).detach();
  IDispatch* values = nullptr;
  LONG sn = 41;
  float result = 0;
  ASSERT_EQ(detail->Read(number.in_out(), reference_text.in_out(), &null_text, &names, &values, &sn, &result),
            S_OK);
  EXPECT_EQ(result, 100.0F);
  EXPECT_EQ(number.content(), "A1!");
  EXPECT_EQ(reference_text.content(), "!");
  EXPECT_STREQ(null_text, L"!");
  EXPECT_EQ(sn, 42);
  EXPECT_NE(names, collection.get());
  EXPECT_EQ(values, nullptr);
  collection.get()->AddRef();
  EXPECT_EQ(collection.get()->Release(), 1U);
  names->Release();
  SysFreeString(null_text);
}

TEST(InterfaceMember, ReturnsEveryKindOfResult) {
  const auto detail = new_detail();
  const Text order(L"PO1");
  SHORT verdict = 0;
  EXPECT_EQ(detail->POExam(order.in(), &verdict), S_OK);
  EXPECT_EQ(verdict, 1);
  BSTR type = nullptr;
  EXPECT_EQ(detail->OrderTypeExam(order.in(), &type), S_OK);
  EXPECT_STREQ(type, L"PO1");
  SysFreeString(type);
  EXPECT_EQ(detail->OrderTypeExam(nullptr, &type), S_OK);
  EXPECT_EQ(SysStringLen(type), 0U);
  SysFreeString(type);

  const auto head = new_head();
  Variant same;
  EXPECT_EQ(head->ValidCloseDT(Variant(Value(7), Role::caller).raw(), &same.raw()), S_OK);
  EXPECT_EQ(value_in(same.raw()), Value(7));

  const auto reports = new_reports();
  IDispatch* report = nullptr;
  EXPECT_EQ(reports->GetCheckBalance(order.in(), &report), S_OK);
  ASSERT_NE(report, nullptr);
  report->Release();
  EXPECT_EQ(reports->GetCheckBalance(nullptr, &report), S_OK);
  EXPECT_EQ(report, nullptr);
}

TEST(InterfaceMember, NullPointersAreAnswered) {
  const auto detail = new_detail();
  Text text(L"x");
  IDispatch* none = nullptr;
  LONG sn = 0;
  float result = 5;
  EXPECT_EQ(detail->Read(nullptr, text.in_out(), text.in_out(), &none, &none, &sn, &result), E_POINTER);
  EXPECT_EQ(result, 0.0F);
  EXPECT_EQ(detail->Read(text.in_out(), text.in_out(), text.in_out(), nullptr, &none, &sn, &result),
            E_POINTER);
  EXPECT_EQ(detail->Read(text.in_out(), text.in_out(), text.in_out(), &none, &none, &sn, nullptr), E_POINTER);
  EXPECT_EQ(detail->POExam(text.in(), nullptr), E_POINTER);
  EXPECT_EQ(detail->get_ErrNumber(nullptr), E_POINTER);
  EXPECT_EQ(detail->get_ErrDescription(nullptr), E_POINTER);
  EXPECT_EQ(detail->put_Language(nullptr), S_OK) << "a null text is an empty one";
  EXPECT_EQ(detail->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(detail->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(detail->GetTypeInfo(0, 0, nullptr), E_POINTER);
  EXPECT_EQ(detail->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
  LPOLESTR no_name = nullptr;
  DISPID id = 0;
  EXPECT_EQ(detail->GetIDsOfNames(IID_NULL, &no_name, 1, 0, &id), E_POINTER);
  EXPECT_EQ(detail->GetIDsOfNames(IID_NULL, &no_name, 0, 0, &id), E_INVALIDARG);
  EXPECT_EQ(detail->Invoke(11, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  DISPPARAMS missing_list{nullptr, nullptr, 3, 0};
  EXPECT_EQ(detail->Invoke(11, IID_NULL, 0, DISPATCH_METHOD, &missing_list, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  VARIANTARG argument = left_out();
  DISPPARAMS missing_names{&argument, nullptr, 1, 1};
  EXPECT_EQ(detail->Invoke(11, IID_NULL, 0, DISPATCH_METHOD, &missing_names, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  DISPPARAMS empty{};
  EXPECT_EQ(detail->Invoke(11, IID_IUnknown, 0, DISPATCH_METHOD, &empty, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(detail->Invoke(11, IID_NULL, 0, 0, &empty, nullptr, nullptr, nullptr), E_INVALIDARG);
}

TEST(InterfaceMember, ANullPointerLeavesAnOptionalArgumentOut) {
  const auto detail = new_detail();
  Text text(L"x");
  IDispatch* names = nullptr;
  IDispatch* values = nullptr;
  float result = 0;
  TestDetail::last_sn = 0;
  EXPECT_EQ(detail->Read(text.in_out(), text.in_out(), text.in_out(), &names, &values, nullptr, &result),
            S_OK);
  EXPECT_EQ(result, 100.0F);
  EXPECT_EQ(TestDetail::last_sn, -1) << "what an omitted number stands for";
  ASSERT_NE(names, nullptr);
  names->Release();

  LONG sn = 1;
  double quantities[3] = {};
  double verdict = 5;
  EXPECT_EQ(
      detail->PORefQty(text.in_out(), &sn, &quantities[0], &quantities[1], &quantities[2], nullptr, &verdict),
      S_OK);
  EXPECT_EQ(verdict, 0.0) << "an omitted type is an empty one";
  EXPECT_EQ(quantities[2], -3.5);
  EXPECT_EQ(detail->PORefQty(text.in_out(), nullptr, &quantities[0], &quantities[1], &quantities[2], nullptr,
                             &verdict),
            E_POINTER);
}

TEST(InterfaceMember, LeavesAnErrorObjectWhenItFails) {
  const auto head = new_head();
  const auto support = automation::com::query<ISupportErrorInfo>(head.get());
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__CTranHead), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);

  SetErrorInfo(0, nullptr);
  Variant result;
  EXPECT_EQ(head->ValidCloseDT(Variant(Value("x"), Role::caller).raw(), &result.raw()),
            static_cast<HRESULT>(0x800A0E7D));
  Pointer<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
  BSTR description = nullptr;
  BSTR source = nullptr;
  GUID id;
  EXPECT_EQ(info->GetDescription(&description), S_OK);
  EXPECT_EQ(info->GetSource(&source), S_OK);
  EXPECT_EQ(info->GetGUID(&id), S_OK);
  EXPECT_STREQ(description, L"the connection is closed");
  EXPECT_STREQ(source, L"Tallyra.CTranHead");
  EXPECT_EQ(id, IID__CTranHead);
  SysFreeString(description);
  SysFreeString(source);
}

TEST(InterfaceMember, WhatIsDeclaredButNotYetThereIsNotImplemented) {
  const auto close = new_close();
  float result = 5;
  Text text(L"x");
  EXPECT_EQ(close->STKMonthClose(text.in_out(), text.in_out(), &result), E_NOTIMPL);
  EXPECT_EQ(result, 0.0F);
  EXPECT_EQ(close->put_UserID(text.in()), E_NOTIMPL);
}

}  // namespace
}  // namespace tallyra::tests::com
