#include <gtest/gtest.h>

#include "automation/com/com_proxy.h"
#include "automation/com/type_library.h"
#include "tests/com/business_objects.h"
#include "tests/com/test_classes.h"

// Calls of an object that leaves its Invoke to a type library, as compiled collaborators do. It takes typed
// references for its typed parameters and nothing else.
namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using automation::com::ComProxy;

class TypedCallee : public IDispatch {
 public:
  explicit TypedCallee(Pointer<_CTranDetail> members)
      : members_(std::move(members)), description_(automation::com::type_info(IID__CTranDetail)) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  // Lives as long as its test.
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** description) override {
    ++times_described;
    *description = Pointer<ITypeInfo>(description_).detach();
    return S_OK;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return description_->GetIDsOfNames(names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* failure, UINT* argument_at_fault) override {
    return description_->Invoke(members_.get(), id, flags, parameters, result, failure, argument_at_fault);
  }

  int times_described = 0;

 private:
  Pointer<_CTranDetail> members_;
  Pointer<ITypeInfo> description_;
};

class TypedCalleeCall : public testing::Test {
 protected:
  TypedCallee callee_{new_detail()};
  Object object_ = automation::make_object<ComProxy>(Pointer<IDispatch>(&callee_));
};

TEST_F(TypedCalleeCall, TextsObjectsAndNumbersGoInAndComeBackReplaced) {
  Value number("A1");
  Value reference("");
  Value part("P");
  const Object before = automation::make_object<automation::Collection>();
  Value names(before);
  Value values((Object()));
  Value line(std::int32_t{41});
  EXPECT_EQ(object_.call("Read", ref(number), ref(reference), ref(part), ref(names), ref(values), ref(line)),
            Value(100.0F));
  EXPECT_EQ(number, Value("A1!"));
  EXPECT_EQ(reference, Value("!"));
  EXPECT_EQ(part, Value("P!"));
  EXPECT_EQ(line, Value(std::int32_t{42}));
  ASSERT_TRUE(names.is_object());
  EXPECT_NE(names, Value(before));
  EXPECT_EQ(names.get_if<Object>()->call("Item", 1), Value("fresh"));
  EXPECT_EQ(values, Value(Object()));
}

TEST_F(TypedCalleeCall, QuantitiesGoInAndComeBackReplaced) {
  Value reference("PO1");
  Value line(std::int32_t{1});
  Value ordered(0.0);
  Value received(0.0);
  Value returned(0.0);
  Value type("x");
  object_.call("PORefQty", ref(reference), ref(line), ref(ordered), ref(received), ref(returned), ref(type));
  EXPECT_EQ(ordered, Value(1.5));
  EXPECT_EQ(received, Value(2.5));
  EXPECT_EQ(returned, Value(-3.5));
  EXPECT_EQ(reference, Value("PO1"));
}

TEST_F(TypedCalleeCall, TheCalleeIsAskedOnceWhetherItDescribesItself) {
  object_.call("OrderTypeExam", "PO1");
  EXPECT_EQ(callee_.times_described, 0) << "nothing goes by reference";
  for (int i = 0; i < 3; ++i) {
    Value order("PO1");
    EXPECT_EQ(object_.call("OrderTypeExam", ref(order)), Value("PO1"));
  }
  EXPECT_EQ(callee_.times_described, 1);
}

}  // namespace
}  // namespace tallyra::tests::com
