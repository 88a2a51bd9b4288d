#include "automation/com/com_object.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "tests/com/echo_object.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::com::ComObject;
using automation::com::Pointer;

TEST(ComObject, IsCalledByNameWithoutADescription) {
  const auto object = ComObject::make(automation::make_object<EchoObject>(), Role::callee);
  UINT count = 99;
  EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
  ITypeInfo* info = reinterpret_cast<ITypeInfo*>(&count);
  EXPECT_EQ(object->GetTypeInfo(0, 0, &info), E_NOTIMPL);
  EXPECT_EQ(info, nullptr);
  LPOLESTR name = const_cast<LPOLESTR>(L"keep");
  DISPID id = 0;
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
  const Variant text(Value("x"), Role::caller);
  WireCall call{.id = id, .arguments = {text.raw()}};
  ASSERT_EQ(call.on(object.get()), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value("x"));
}

// Lets the client's only reference go while it runs.
class Releasing : public automation::Implements<Releasing> {
 public:
  explicit Releasing(bool& alive) : alive_(alive) { alive_ = true; }
  ~Releasing() override { alive_ = false; }
  static const automation::MemberTable<Releasing>& members() {
    static const automation::MemberTable<Releasing> table{
        {1, "Release", automation::method<&Releasing::release>}};
    return table;
  }
  Value release(automation::Arguments) {
    client->Release();
    return alive_;
  }

  static inline IDispatch* client = nullptr;

 private:
  bool& alive_;
};

TEST(ComObject, LivesToTheEndOfACallThatLosesItsLastReference) {
  bool alive = false;
  Releasing::client = ComObject::make(automation::make_object<Releasing>(alive), Role::callee).detach();
  WireCall call{.id = 1};
  EXPECT_EQ(call.on(Releasing::client), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value(true));
  EXPECT_FALSE(alive);
}

TEST(ComObject, IsWalkedByAForEachWhenThereIsSomethingToWalk) {
  const auto list = ComObject::make(automation::make_object<automation::Collection>(), Role::callee);
  WireCall walk{.id = DISPID_NEWENUM};
  EXPECT_EQ(walk.on(list.get()), S_OK);
  EXPECT_EQ(V_VT(&walk.result.raw()), VT_UNKNOWN);
  const auto echo = ComObject::make(automation::make_object<EchoObject>(), Role::callee);
  WireCall none{.id = DISPID_NEWENUM};
  EXPECT_EQ(none.on(echo.get()), DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace tallyra::tests::com
