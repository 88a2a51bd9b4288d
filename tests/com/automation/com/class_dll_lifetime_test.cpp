#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "tallyra.h"
#include "tests/com/heap_blocks.h"
#include "tests/com/server_dll.h"
#include "tests/com/wire_call.h"

// When the DLL may be unloaded, and that nothing stays behind.
namespace tallyra::tests::com {
namespace {

constexpr int rounds = 10'000;

TEST(LeakCounter, SeesALeak) {
  const long before = blocks_in_use();
  BSTR leaked[1000];
  for (BSTR& each : leaked) each = SysAllocString(L"a text that is long enough for a block of its own");
  EXPECT_EQ(blocks_in_use() - before, 1000);
  for (BSTR each : leaked) SysFreeString(each);
  EXPECT_EQ(blocks_in_use() - before, 0);
}

class Lifetime : public testing::Test {
 protected:
  ServerDll dll_;
};

TEST_F(Lifetime, ObjectsAreCreatedCalledAndReleasedWithoutALeak) {
  const auto round = [this] {
    const auto address = dll_.create<_CRevAddr>(CLSID_CRevAddr);
    BSTR text = SysAllocString(L"a text that is long enough for a block of its own");
    EXPECT_EQ(address->put_ConnectionString(text), S_OK);
    EXPECT_EQ(address->put_UserID(text), S_OK);
    BSTR description = nullptr;
    EXPECT_EQ(address->get_ErrDescription(&description), S_OK);
    SysFreeString(description);
    SysFreeString(text);
  };
  EXPECT_LT(leaked_by(rounds, round), few);
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

TEST_F(Lifetime, CallsByNameWithReplacedAndRefusedArgumentsLeaveNothing) {
  const auto address = dll_.create<IDispatch>(CLSID_CRevAddr);
  const auto collection =
      automation::com::ComObject::make(automation::make_object<automation::Collection>(), Role::caller);
  const auto round = [&] {
    LPOLESTR name = const_cast<LPOLESTR>(L"ErrDescription");
    DISPID id = 0;
    EXPECT_EQ(address->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
    WireCall get{.id = id};
    EXPECT_EQ(get.on(address.get()), S_OK);
    const Variant text(Value("a text that is long enough for a block of its own"), Role::caller);
    WireCall put{.id = 5, .flags = DISPATCH_PROPERTYPUT, .arguments = {text.raw()}};
    EXPECT_EQ(put.on(address.get()), S_OK);
    IDispatch* object = collection.get();
    WireCall mismatch{.id = 11, .arguments = {text.raw(), reference(VT_DISPATCH, &object), text.raw()}};
    EXPECT_EQ(mismatch.on(address.get()), DISP_E_TYPEMISMATCH);
  };
  EXPECT_LT(leaked_by(rounds, round), few);
  collection.get()->AddRef();
  EXPECT_EQ(collection.get()->Release(), 1U);
}

TEST_F(Lifetime, TheDllStaysAsLongAsAnythingOfItIsHeld) {
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
  auto object = dll_.create<_CStockClose>(CLSID_CStockClose);
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE);

  auto container = automation::com::query<IConnectionPointContainer>(object.get());
  Pointer<IConnectionPoint> point;
  ASSERT_EQ(container->FindConnectionPoint(DIID___CStockClose, point.out()), S_OK);
  object = {};
  container = {};
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "a connection point is held";
  Pointer<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.out()), S_OK);
  point = {};
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "an enumerator is held";
  connections = {};
  EXPECT_EQ(dll_.can_unload_now(), S_OK);

  Pointer<IClassFactory> factory;
  ASSERT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, factory.out_void()), S_OK);
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "a class object is held";
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  factory = {};
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "it is locked";
  ASSERT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, factory.out_void()), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

TEST_F(Lifetime, NoObjectClaimsToBeSafeForScripting) {
  const auto object = dll_.create<IUnknown>(CLSID_CRevAddr);
  constexpr IID object_safety = {
      0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
  void* out = this;
  EXPECT_EQ(object->QueryInterface(object_safety, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

}  // namespace
}  // namespace tallyra::tests::com
