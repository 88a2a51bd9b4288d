#include "automation/com/collection_object.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/com_proxy.h"
#include "automation/com/module.h"
#include "automation/com/object_passage.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::com::ComProxy;
using automation::com::Pointer;

// A collection as a client of another module sees it.
class CollectionOverCom : public testing::Test {
 protected:
  Pointer<IDispatch> com_ =
      automation::com::dispatch_of(automation::make_object<automation::Collection>(), Role::callee);
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

TEST_F(CollectionOverCom, ItsMembersHaveNamedParameters) {
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"Add"), const_cast<LPOLESTR>(L"KEY"),
                      const_cast<LPOLESTR>(L"before"), const_cast<LPOLESTR>(L"After"),
                      const_cast<LPOLESTR>(L"Item")};
  DISPID ids[5];
  ASSERT_EQ(com_->GetIDsOfNames(IID_NULL, names, 5, 0, ids), S_OK);
  EXPECT_EQ(std::vector<DISPID>(ids, ids + 5), (std::vector<DISPID>{1, 1, 2, 3, 0}));
  LPOLESTR of_item[] = {const_cast<LPOLESTR>(L"Item"), const_cast<LPOLESTR>(L"Index"),
                        const_cast<LPOLESTR>(L"Key")};
  EXPECT_EQ(com_->GetIDsOfNames(IID_NULL, of_item, 2, 0, ids), S_OK);
  EXPECT_EQ(ids[1], 0);
  EXPECT_EQ(com_->GetIDsOfNames(IID_NULL, of_item, 3, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(std::vector<DISPID>(ids, ids + 3), (std::vector<DISPID>{0, 0, DISPID_UNKNOWN}));
  for (const wchar_t* name : {L"QueryInterface", L"Invoke", L"get_Count", L"Index"}) {
    LPOLESTR asked = const_cast<LPOLESTR>(name);
    EXPECT_EQ(com_->GetIDsOfNames(IID_NULL, &asked, 1, 0, ids), DISP_E_UNKNOWNNAME);
  }
}

TEST_F(CollectionOverCom, TakesNamedArgumentsBesideThoseByPosition) {
  const Variant item(Value("x"), Role::caller);
  const Variant key(Value("Key"), Role::caller);
  const Variant first(Value(1), Role::caller);
  // On the wire: the named ones first, then the positional ones backwards.
  WireCall keyed{.id = 1, .arguments = {item.raw(), key.raw()}, .names = {1}};
  ASSERT_EQ(keyed.on(com_.get()), S_OK);
  WireCall placed{.id = 1, .arguments = {key.raw(), first.raw()}, .names = {2}};
  ASSERT_EQ(placed.on(com_.get()), S_OK);
  WireCall all_named{.id = 1, .arguments = {first.raw(), item.raw()}, .names = {0, 3}};
  ASSERT_EQ(all_named.on(com_.get()), S_OK);
  EXPECT_EQ(object_.call("Item", 1), Value("Key"));
  EXPECT_EQ(object_.call("Item", 2), Value("x"));
  EXPECT_EQ(object_.call("Item", "KEY"), Value("x"));
  WireCall named_index{.id = 0, .arguments = {key.raw()}, .names = {0}};
  ASSERT_EQ(named_index.on(com_.get()), S_OK);
  EXPECT_EQ(value_in(named_index.result.raw()), Value("x"));
  EXPECT_EQ(object_.get("Count"), Value(3));
}

TEST_F(CollectionOverCom, RefusesNamesThatItHasNotAndWhatItCannotDoWithout) {
  const Variant item(Value("x"), Role::caller);
  WireCall unknown{.id = 1, .arguments = {item.raw(), item.raw()}, .names = {4}};
  EXPECT_EQ(unknown.on(com_.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(unknown.failure.scode, static_cast<SCODE>(0x800A0000 | 448));
  EXPECT_EQ(unknown.argument_at_fault, 0U);
  WireCall key_alone{.id = 1, .arguments = {item.raw()}, .names = {1}};
  EXPECT_EQ(key_alone.on(com_.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(key_alone.failure.scode, static_cast<SCODE>(0x800A0000 | 449));
  for (const std::size_t count : {0U, 5U}) {
    WireCall counted{.id = 1, .arguments = std::vector<VARIANTARG>(count, item.raw())};
    EXPECT_EQ(counted.on(com_.get()), DISP_E_EXCEPTION);
    EXPECT_EQ(counted.failure.scode, static_cast<SCODE>(0x800A0000 | 450)) << count;
  }
  EXPECT_EQ(object_.get("Count"), Value(0));
}

TEST_F(CollectionOverCom, ItsErrorsBearItsName) {
  object_.call("Add", "a", "key");
  const Variant twice(Value("KEY"), Role::caller);
  WireCall call{.id = 1, .arguments = {twice.raw(), twice.raw()}};
  EXPECT_EQ(call.on(com_.get()), DISP_E_EXCEPTION);
  EXPECT_EQ(call.failure.scode, static_cast<SCODE>(0x800A0000 | 457));
  EXPECT_EQ(call.failure.wCode, 0);
  EXPECT_STREQ(call.failure.bstrSource, L"Tallyra.Collection");
  EXPECT_STREQ(call.failure.bstrDescription,
               L"This key is already associated with an element of this collection");
  WireCall quiet{.id = 1, .arguments = {twice.raw(), twice.raw()}};
  EXPECT_EQ(quiet.on(com_.get(), {.result = false, .failure = false, .argument_at_fault = false}),
            static_cast<HRESULT>(0x800A0000 | 457));
  WireCall put{.id = 2, .flags = DISPATCH_PROPERTYPUT, .arguments = {twice.raw()}};
  EXPECT_EQ(put.on(com_.get()), DISP_E_MEMBERNOTFOUND);
}

// This program has no type library to describe it by.
TEST_F(CollectionOverCom, DoesWithoutADescription) {
  UINT count = 99;
  EXPECT_EQ(com_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 0U);
  Pointer<ITypeInfo> info;
  EXPECT_TRUE(FAILED(com_->GetTypeInfo(0, 0, info.out())));
  EXPECT_FALSE(info);
  const auto provider = automation::com::query<IProvideClassInfo>(com_.get());
  EXPECT_TRUE(FAILED(provider->GetClassInfo(info.out())));
  EXPECT_FALSE(info);
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

TEST_F(CollectionOverCom, KeepsTheModuleLoadedAsLongAsItIsHeld) {
  const long before = automation::com::module_uses();
  auto another =
      automation::com::dispatch_of(automation::make_object<automation::Collection>(), Role::callee);
  EXPECT_EQ(automation::com::module_uses(), before + 1);
  another = {};
  EXPECT_EQ(automation::com::module_uses(), before);
}

}  // namespace
}  // namespace tallyra::tests::com
