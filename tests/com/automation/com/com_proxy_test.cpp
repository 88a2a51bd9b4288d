#include "automation/com/com_proxy.h"

#include <gtest/gtest.h>

#include <functional>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "automation/com/text.h"
#include "automation/error.h"
#include "tests/com/heap_blocks.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Error;
using automation::Object;
using automation::com::ComProxy;
using automation::com::Pointer;

// An object of somebody else: remembers how it was called and answers as the test says.
class ForeignObject : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID wanted, void** out) override {
    if (wanted != IID_IUnknown && wanted != IID_IDispatch) {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    *out = this;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = Pointer<ITypeInfo>(description).detach();
    return *info ? S_OK : E_NOTIMPL;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID locale, DISPID* ids) override {
    ++lookups;
    lookup_locale = locale;
    if (during_lookup) during_lookup();
    if (std::wstring_view(names[0]) != L"Member") return DISP_E_UNKNOWNNAME;
    *ids = 42;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD used_flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* failure, UINT* argument_at_fault) override {
    id = member;
    flags = used_flags;
    types.clear();
    for (UINT i = 0; i < parameters->cArgs; ++i) types.push_back(V_VT(&parameters->rgvarg[i]));
    put_named = parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    return answer ? answer(*parameters, result, failure, argument_at_fault) : S_OK;
  }

  ULONG references = 1;
  int lookups = 0;
  LCID lookup_locale = 99;
  std::function<void()> during_lookup;
  Pointer<ITypeInfo> description;
  DISPID id = 0;
  WORD flags = 0;
  std::vector<VARTYPE> types;
  bool put_named = false;
  std::function<HRESULT(DISPPARAMS&, VARIANT*, EXCEPINFO*, UINT*)> answer;
};

class ForeignProxy : public testing::Test {
 protected:
  ~ForeignProxy() override {
    object_ = {};
    EXPECT_EQ(foreign_.references, 1U);
  }

  Error failure_of(const std::function<void()>& call) {
    try {
      call();
    } catch (const Error& error) {
      return error;
    }
    ADD_FAILURE() << "no error";
    return Error(0);
  }

  ForeignObject foreign_;
  Object object_ = automation::make_object<ComProxy>(Pointer<IDispatch>(&foreign_));
};

TEST_F(ForeignProxy, ReadsAskForMethodAndPropertyAndNamesAreLookedUpOnce) {
  foreign_.answer = [](DISPPARAMS&, VARIANT* result, EXCEPINFO*, UINT*) {
    *result = Variant(Value("answer"), Role::callee).detach();
    return S_OK;
  };
  EXPECT_EQ(object_.get("Member"), Value("answer"));
  EXPECT_EQ(object_.call("Member", 1, "two"), Value("answer"));
  EXPECT_EQ(foreign_.id, 42);
  EXPECT_EQ(foreign_.flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
  EXPECT_EQ(foreign_.types, (std::vector<VARTYPE>{VT_BSTR, VT_I4}));
  EXPECT_FALSE(foreign_.put_named);
  EXPECT_EQ(foreign_.lookups, 1);
  EXPECT_EQ(foreign_.lookup_locale, LCID{LOCALE_NEUTRAL});
}

TEST_F(ForeignProxy, AnUnknownNameIsError438) {
  EXPECT_EQ(failure_of([&] { object_.get("Other"); }).number(), 438);
}

TEST_F(ForeignProxy, PutsNameTheirValueAndObjectsArePutByReference) {
  object_.put("Member", "x");
  EXPECT_EQ(foreign_.flags, DISPATCH_PROPERTYPUT);
  EXPECT_TRUE(foreign_.put_named);
  EXPECT_EQ(foreign_.types, std::vector<VARTYPE>{VT_BSTR});
  object_.put("Member", object_);
  EXPECT_EQ(foreign_.flags, DISPATCH_PROPERTYPUTREF);
  EXPECT_TRUE(foreign_.put_named);
  EXPECT_EQ(foreign_.types, std::vector<VARTYPE>{VT_DISPATCH});
}

TEST_F(ForeignProxy, ArgumentsByReferenceComeBackReplaced) {
  foreign_.answer = [](DISPPARAMS& parameters, VARIANT*, EXCEPINFO*, UINT*) {
    VARIANT* first = V_VARIANTREF(&parameters.rgvarg[1]);
    VariantClear(first);
    *first = Variant(Value(7), Role::callee).detach();
    return S_OK;
  };
  Value first("one");
  Value second("two");
  object_.call("Member", automation::ref(first), automation::ref(second));
  EXPECT_EQ(foreign_.types, (std::vector<VARTYPE>{VT_BYREF | VT_VARIANT, VT_BYREF | VT_VARIANT}));
  EXPECT_EQ(first, Value(7));
  EXPECT_EQ(second, Value("two"));
}

// Any description will do.
Pointer<ITypeInfo> some_description() {
  Pointer<ITypeLib> library;
  Pointer<ITypeInfo> info;
  if (FAILED(LoadTypeLib(L"stdole2.tlb", library.out())) || FAILED(library->GetTypeInfo(0, info.out())))
    throw std::runtime_error("the system's type library cannot be loaded");
  return info;
}

TEST_F(ForeignProxy, ACalleeThatDescribesItselfGetsReferencesToTypedVariables) {
  foreign_.description = some_description();
  const std::pair<Value, int> forms[] = {
      {"text", VT_BSTR},
      {std::uint8_t{1}, VT_UI1},
      {std::int16_t{1}, VT_I2},
      {std::int32_t{1}, VT_I4},
      {1.0F, VT_R4},
      {1.0, VT_R8},
      {automation::Currency{1}, VT_CY},
      {automation::Date{1}, VT_DATE},
      {true, VT_BOOL},
      {Object(), VT_DISPATCH},
      {Value(), VT_VARIANT},
      {automation::Null{}, VT_VARIANT},
      {automation::Missing{}, VT_VARIANT},
      {*automation::Decimal::parse("1.5"), VT_VARIANT},
      {std::int64_t{1}, VT_VARIANT},
  };
  for (const auto& [value, type] : forms) {
    SCOPED_TRACE(type);
    Value argument = value;
    object_.call("Member", automation::ref(argument));
    EXPECT_EQ(foreign_.types, std::vector<VARTYPE>{static_cast<VARTYPE>(VT_BYREF | type)});
    EXPECT_EQ(argument, value);
  }
  foreign_.answer = [](DISPPARAMS& parameters, VARIANT*, EXCEPINFO*, UINT*) {
    *V_BOOLREF(&parameters.rgvarg[0]) = VARIANT_TRUE;
    *V_DATEREF(&parameters.rgvarg[1]) += 1;
    SysFreeString(*V_BSTRREF(&parameters.rgvarg[2]));
    *V_BSTRREF(&parameters.rgvarg[2]) = SysAllocString(L"new");
    return E_FAIL;
  };
  Value text("old");
  Value date(automation::Date{1});
  Value flag(false);
  failure_of(
      [&] { object_.call("Member", automation::ref(text), automation::ref(date), automation::ref(flag)); });
  EXPECT_EQ(text, Value("new"));
  EXPECT_EQ(date, Value(automation::Date{2}));
  EXPECT_EQ(flag, Value(true));
}

TEST_F(ForeignProxy, AnObjectThatComesBackUnchangedIsTheSameObject) {
  Value own(automation::make_object<automation::Collection>());
  Value foreign(object_);
  const Value own_before = own;
  const Value foreign_before = foreign;
  object_.call("Member", automation::ref(own), automation::ref(foreign));
  EXPECT_EQ(own, own_before);
  EXPECT_EQ(foreign, foreign_before);
}

TEST_F(ForeignProxy, AReplacedObjectComesBackAndTheOldOneIsLetGo) {
  ForeignObject other;
  foreign_.answer = [&other](DISPPARAMS& parameters, VARIANT*, EXCEPINFO*, UINT*) {
    VARIANT* first = V_VARIANTREF(&parameters.rgvarg[0]);
    VariantClear(first);
    V_VT(first) = VT_DISPATCH;
    V_DISPATCH(first) = &other;
    other.AddRef();
    return S_OK;
  };
  Value argument(object_);
  object_.call("Member", automation::ref(argument));
  argument.get_if<Object>()->get("Member");
  EXPECT_EQ(other.id, 42);
  EXPECT_EQ(other.references, 2U);
  argument = {};
  EXPECT_EQ(other.references, 1U);
}

struct FailureCase {
  const char* what;
  HRESULT code;
  SCODE scode;
  WORD wcode;
  const wchar_t* text;
  std::int32_t number;
  const char* description;
};

TEST_F(ForeignProxy, FailuresAreReadAsAClassicClientReadsThem) {
  const FailureCase cases[] = {
      {"code and text", DISP_E_EXCEPTION, static_cast<SCODE>(0x800A0E79), 0, L"open already", 3705,
       "open already"},
      {"provider code", DISP_E_EXCEPTION, static_cast<SCODE>(0x80040E14), 0, L"syntax", -2147217900,
       "syntax"},
      {"no text", DISP_E_EXCEPTION, static_cast<SCODE>(0x800A0005), 0, nullptr, 5,
       "Invalid procedure call or argument"},
      {"empty text", DISP_E_EXCEPTION, static_cast<SCODE>(0x80040E14), 0, L"", -2147217900, ""},
      {"short code", DISP_E_EXCEPTION, 0, 1004, L"short", 1004, "short"},
      {"no code at all", DISP_E_EXCEPTION, 0, 0, nullptr, DISP_E_EXCEPTION, ""},
      {"plain code", DISP_E_TYPEMISMATCH, 0, 0, nullptr, 13, "Type mismatch"},
      {"plain unknown code", E_FAIL, 0, 0, nullptr, E_FAIL, ""},
      {"not there", DISP_E_MEMBERNOTFOUND, 0, 0, nullptr, 438,
       "Object doesn't support this property or method"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    foreign_.answer = [&each](DISPPARAMS&, VARIANT*, EXCEPINFO* failure, UINT*) {
      if (each.code == DISP_E_EXCEPTION) {
        failure->scode = each.scode;
        failure->wCode = each.wcode;
        failure->bstrSource = SysAllocString(L"elsewhere");
        failure->bstrDescription = each.text ? SysAllocString(each.text) : nullptr;
      }
      return each.code;
    };
    const Error error = failure_of([&] { object_.get("Member"); });
    EXPECT_EQ(error.number(), each.number);
    EXPECT_EQ(error.description(), each.description);
  }
}

TEST_F(ForeignProxy, TextsThatCameWithAnyFailureAreFreed) {
  for (const HRESULT code : {DISP_E_EXCEPTION, DISP_E_TYPEMISMATCH, E_FAIL}) {
    SCOPED_TRACE(code);
    foreign_.answer = [code](DISPPARAMS&, VARIANT*, EXCEPINFO* failure, UINT*) {
      for (BSTR* text : {&failure->bstrSource, &failure->bstrDescription, &failure->bstrHelpFile})
        *text = SysAllocString(L"a text that is long enough for a block of its own");
      return code;
    };
    const auto fail = [this] { failure_of([this] { object_.get("Member"); }); };
    for (int i = 0; i < 100; ++i) fail();
    const long before = blocks_in_use();
    for (int i = 0; i < 1000; ++i) fail();
    EXPECT_LT(blocks_in_use() - before, 100);
  }
}

TEST_F(ForeignProxy, ALookUpThatLosesTheLastReferenceReachesItsEnd) {
  foreign_.during_lookup = [this] { object_ = {}; };
  auto* const proxy = object_.dispatch();
  EXPECT_EQ(proxy->resolve("Member"), 42);
  EXPECT_FALSE(object_);
}

HRESULT WINAPI describe_later(EXCEPINFO* failure) {
  failure->scode = static_cast<SCODE>(0x800A0BCD);
  failure->bstrDescription = SysAllocString(L"no record");
  return S_OK;
}

TEST_F(ForeignProxy, ADeferredDescriptionIsAskedFor) {
  foreign_.answer = [](DISPPARAMS&, VARIANT*, EXCEPINFO* failure, UINT*) {
    failure->pfnDeferredFillIn = describe_later;
    return DISP_E_EXCEPTION;
  };
  const Error error = failure_of([&] { object_.get("Member"); });
  EXPECT_EQ(error.number(), 3021);
  EXPECT_EQ(error.description(), "no record");
}

TEST_F(ForeignProxy, TheArgumentAtFaultIsToldByItsPosition) {
  foreign_.answer = [](DISPPARAMS&, VARIANT*, EXCEPINFO*, UINT* argument_at_fault) {
    *argument_at_fault = 2;
    return DISP_E_TYPEMISMATCH;
  };
  EXPECT_EQ(failure_of([&] { object_.call("Member", 1, 2, 3); }).argument(), 1);
  foreign_.answer = [](DISPPARAMS&, VARIANT*, EXCEPINFO*, UINT*) { return DISP_E_TYPEMISMATCH; };
  EXPECT_EQ(failure_of([&] { object_.call("Member", 1, 2, 3); }).argument(), 0);
}

TEST_F(ForeignProxy, ManyArgumentsTravelInTheirOrder) {
  std::vector<std::int32_t> seen;
  foreign_.answer = [&seen](DISPPARAMS& parameters, VARIANT*, EXCEPINFO*, UINT*) {
    for (UINT i = parameters.cArgs; i > 0; --i) seen.push_back(V_I4(&parameters.rgvarg[i - 1]));
    return S_OK;
  };
  object_.call("Member", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10);
  EXPECT_EQ(seen, (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

}  // namespace
}  // namespace tallyra::tests::com
