#include <dispex.h>
#include <gtest/gtest.h>

#include <functional>

#include "automation/com/com_proxy.h"
#include "automation/com/text.h"
#include "automation/error.h"
#include "tests/com/wire_call.h"

// Objects of scripts as their engines offer them to a client's component.
namespace tallyra::tests::com {
namespace {

using automation::Error;
using automation::Object;
using automation::com::ComProxy;
using automation::com::Pointer;

constexpr DISPID variable_id = 1;
constexpr DISPID function_id = 2;

// Has a variable "Count" and a function "Item"; either may be unusable through IDispatch, as one engine has
// it, and the variable is none to a caller that asks for "method or property", as another has it.
class EngineObject : public IDispatchEx {
 public:
  STDMETHODIMP QueryInterface(REFIID wanted, void** out) override {
    *out = nullptr;
    if (wanted != IID_IUnknown && wanted != IID_IDispatch &&
        (wanted != __uuidof(IDispatchEx) || !is_engine_object))
      return E_NOINTERFACE;
    *out = this;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    return in_name_only ? E_NOTIMPL : id_of(names[0], ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    return in_name_only ? E_NOTIMPL : use(id, flags, *parameters, result);
  }

  STDMETHODIMP GetDispID(BSTR name, DWORD, DISPID* id) override { return id_of(name, id); }
  STDMETHODIMP InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        IServiceProvider*) override {
    return use(id, flags, *parameters, result);
  }
  STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

  ULONG references = 1;
  bool is_engine_object = true;
  bool in_name_only = false;
  bool function_fails = false;
  int runs = 0;
  std::vector<WORD> flags_used;
  Value put;

 private:
  HRESULT id_of(const OLECHAR* name, DISPID* id) {
    *id = name == std::wstring(L"Count")  ? variable_id
          : name == std::wstring(L"Item") ? function_id
                                          : DISPID_UNKNOWN;
    return *id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }

  HRESULT use(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
    flags_used.push_back(flags);
    if (flags == DISPATCH_PROPERTYPUT) {
      put = value_in(parameters.rgvarg[0]);
      return S_OK;
    }
    if (id == variable_id) {
      if (flags != DISPATCH_PROPERTYGET) return E_FAIL;
      *result = Variant(Value(7), Role::callee).detach();
      return S_OK;
    }
    if ((flags & DISPATCH_METHOD) == 0) {
      // The function itself is what its name stands for.
      V_VT(result) = VT_DISPATCH;
      V_DISPATCH(result) = Pointer<IDispatch>(this).detach();
      return S_OK;
    }
    ++runs;
    if (function_fails) return E_FAIL;
    *result = Variant(Value("item"), Role::callee).detach();
    return S_OK;
  }
};

class EngineObjectProxy : public testing::Test {
 protected:
  ~EngineObjectProxy() override {
    object_ = {};
    EXPECT_EQ(engine_object_.references, 1U);
  }

  std::int32_t error_number(const std::function<void()>& call) {
    try {
      call();
      return 0;
    } catch (const Error& error) {
      return error.number();
    }
  }

  EngineObject engine_object_;
  Object object_ = automation::make_object<ComProxy>(Pointer<IDispatch>(&engine_object_));
};

TEST_F(EngineObjectProxy, IsReachedByIDispatchExWhereIDispatchIsThereInNameOnly) {
  engine_object_.in_name_only = true;
  EXPECT_EQ(object_.call("Item", 1), Value("item"));
  EXPECT_EQ(object_.get("Count"), Value(7));
  object_.put("Count", 8);
  EXPECT_EQ(engine_object_.put, Value(8));
  EXPECT_EQ(error_number([&] { object_.get("Other"); }), 438);
  engine_object_.is_engine_object = false;
  const Object other = automation::make_object<ComProxy>(Pointer<IDispatch>(&engine_object_));
  EXPECT_EQ(error_number([&] { other.get("Count"); }), 445);
}

TEST_F(EngineObjectProxy, AVariableThatIsNoMethodIsReadAsAProperty) {
  EXPECT_EQ(object_.get("Count"), Value(7));
  EXPECT_EQ(engine_object_.flags_used,
            (std::vector<WORD>{DISPATCH_METHOD | DISPATCH_PROPERTYGET, DISPATCH_PROPERTYGET}));
}

TEST_F(EngineObjectProxy, AFunctionRunsOnceAlsoWhenItFails) {
  EXPECT_EQ(object_.get("Item"), Value("item"));
  EXPECT_EQ(engine_object_.runs, 1);
  engine_object_.function_fails = true;
  EXPECT_EQ(error_number([&] { object_.get("Item"); }), E_FAIL);
  EXPECT_EQ(engine_object_.runs, 2);
  EXPECT_EQ(error_number([&] { object_.call("Item", 1); }), E_FAIL);
  EXPECT_EQ(engine_object_.runs, 3);
}

TEST_F(EngineObjectProxy, NoOtherObjectIsAskedTwice) {
  engine_object_.is_engine_object = false;
  EXPECT_EQ(error_number([&] { object_.get("Count"); }), E_FAIL);
  EXPECT_EQ(engine_object_.flags_used, std::vector<WORD>{DISPATCH_METHOD | DISPATCH_PROPERTYGET});
}

}  // namespace
}  // namespace tallyra::tests::com
