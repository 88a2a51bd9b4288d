#include "automation/collection.h"

#include <gtest/gtest.h>

#include "automation/com/com_object.h"
#include "automation/com/com_proxy.h"
#include "automation/com/module.h"
#include "automation/com/object_passage.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::com::ComObject;
using automation::com::ComProxy;
using automation::com::Pointer;

// A collection as a client of another module sees it.
class CollectionOverCom : public testing::Test {
 protected:
  Pointer<IDispatch> com_ = ComObject::make(automation::make_object<automation::Collection>(), Role::callee);
  Object object_ = automation::make_object<ComProxy>(com_);

  void fill() {
    for (const char* each : {"a", "b", "c"}) object_.call("Add", each);
  }

  Pointer<IEnumVARIANT> enumerator(WORD flags) {
    WireCall call{.id = DISPID_NEWENUM, .flags = flags};
    EXPECT_EQ(call.on(com_.get()), S_OK);
    EXPECT_EQ(V_VT(&call.result.raw()), VT_UNKNOWN);
    return automation::com::query<IEnumVARIANT>(V_UNKNOWN(&call.result.raw()));
  }
};

TEST_F(CollectionOverCom, AddCountItemAndRemoveWorkByName) {
  fill();
  EXPECT_EQ(object_.get("Count"), Value(3));
  EXPECT_EQ(object_.call("item", 2), Value("b"));
  object_.call("Remove", 1);
  EXPECT_EQ(object_.call("Item", 1), Value("b"));
}

TEST_F(CollectionOverCom, ItemIsTheDefaultMemberAndCountsFromOne) {
  fill();
  const Variant position(Value(1), Role::caller);
  WireCall call{.id = DISPID_VALUE, .arguments = {position.raw()}};
  ASSERT_EQ(call.on(com_.get()), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value("a"));
}

TEST_F(CollectionOverCom, APositionThatDoesNotExistIsError9) {
  fill();
  for (const std::int32_t position : {0, 4, -1}) {
    try {
      object_.call("Item", position);
      ADD_FAILURE() << position;
    } catch (const automation::Error& error) {
      EXPECT_EQ(error.number(), 9);
      EXPECT_EQ(error.description(), "Subscript out of range");
    }
  }
}

TEST_F(CollectionOverCom, ForEachVisitsEveryItemWhicheverFlagAsksForIt) {
  fill();
  LPOLESTR name = const_cast<LPOLESTR>(L"_NewEnum");
  DISPID id = 0;
  ASSERT_EQ(com_->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
  EXPECT_EQ(id, DISPID_NEWENUM);
  for (const WORD flags :
       {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET}, WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}}) {
    const auto items = enumerator(flags);
    ASSERT_TRUE(items);
    std::string visited;
    for (Variant item; items->Next(1, &item.raw(), nullptr) == S_OK; item = Variant())
      visited += *value_in(item.raw()).get_if<std::string>();
    EXPECT_EQ(visited, "abc");
  }
}

TEST_F(CollectionOverCom, AnEnumeratorSkipsStartsAgainAndIsCopied) {
  fill();
  const auto items = enumerator(DISPATCH_METHOD);
  VARIANT fetched[4];
  ULONG count = 99;
  ASSERT_EQ(items->Next(4, fetched, &count), S_FALSE);
  EXPECT_EQ(count, 3U);
  for (ULONG i = 0; i < count; ++i) VariantClear(&fetched[i]);
  EXPECT_EQ(items->Reset(), S_OK);
  EXPECT_EQ(items->Skip(2), S_OK);
  Pointer<IEnumVARIANT> copy;
  ASSERT_EQ(items->Clone(copy.out()), S_OK);
  EXPECT_EQ(items->Skip(2), S_FALSE);
  Variant item;
  ASSERT_EQ(copy->Next(1, &item.raw(), &count), S_OK);
  EXPECT_EQ(value_in(item.raw()), Value("c"));
}

TEST_F(CollectionOverCom, AnEnumeratorSeesTheCollectionAsItIs) {
  fill();
  const auto items = enumerator(DISPATCH_METHOD);
  Variant item;
  ASSERT_EQ(items->Next(1, &item.raw(), nullptr), S_OK);
  object_.call("Remove", 3);
  object_.call("Remove", 2);
  Variant none;
  EXPECT_EQ(items->Next(1, &none.raw(), nullptr), S_FALSE);
  object_.call("Add", "late");
  ASSERT_EQ(items->Next(1, &none.raw(), nullptr), S_OK);
  EXPECT_EQ(value_in(none.raw()), Value("late"));
}

TEST_F(CollectionOverCom, AnEnumeratorRefusesNullPointers) {
  const auto items = enumerator(DISPATCH_METHOD);
  VARIANT item;
  EXPECT_EQ(items->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(items->Next(2, &item, nullptr), E_POINTER);
  EXPECT_EQ(items->Clone(nullptr), E_POINTER);
  EXPECT_EQ(items->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(CollectionOverCom, ItsOwnSideGetsTheObjectBackTheOtherSideCallsIt) {
  const Object own = automation::make_object<automation::Collection>();
  const auto handed_out = automation::com::dispatch_of(own, Role::callee);
  EXPECT_EQ(automation::com::object_of(handed_out.get(), Role::callee), own);
  const Object seen = automation::com::object_of(handed_out.get(), Role::caller);
  EXPECT_NE(seen, own);
  seen.call("Add", "x");
  EXPECT_EQ(own.get("Count"), Value(1));
}

TEST_F(CollectionOverCom, KeepsTheModuleLoadedAsLongAsItIsHeld) {
  const long before = automation::com::module_uses();
  auto another = ComObject::make(automation::make_object<automation::Collection>(), Role::callee);
  EXPECT_EQ(automation::com::module_uses(), before + 1);
  another = {};
  EXPECT_EQ(automation::com::module_uses(), before);
}

}  // namespace
}  // namespace tallyra::tests::com
