#include <gtest/gtest.h>

#include <cstring>

#include "automation/com/text.h"
#include "tallyra.h"
#include "tests/com/client_objects.h"
#include "tests/com/own_apartment.h"
#include "tests/com/wire_call.h"

// The collections that a Read of the DLL hands back, as compiled clients hold them.
namespace tallyra::tests::com {
namespace {

using automation::com::query;

// What a client's variables held before goes.
Pointer<IDispatch> read_names(const ServerDll& dll, const behaviour::CompanyDatabase& company) {
  const auto head = new_client(dll, CLSID_CTranHead, company);
  const Variant number(Value("NO SUCH"), Role::caller);
  const Variant type(Value("STK010POREV"), Role::caller);
  Pointer<IDispatch> names;
  Pointer<IDispatch> values;
  WireCall read{.id = 11,
                .arguments = {number.raw(), type.raw(), reference(VT_DISPATCH, names.out_void()),
                              reference(VT_DISPATCH, values.out_void())}};
  EXPECT_EQ(read.on(head.get()), S_OK);
  EXPECT_EQ(value_in(read.result.raw()), Value(100.0F)) << error_description_of(head.get());
  return names;
}

class ReadCollection : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(list_); }

  HRESULT add(const Value& item, const Value& key = automation::Missing{},
              const Value& before = automation::Missing{}, const Value& after = automation::Missing{}) {
    Variant arguments[] = {
        {item, Role::caller}, {key, Role::caller}, {before, Role::caller}, {after, Role::caller}};
    return list_->Add(&arguments[0].raw(), &arguments[1].raw(), &arguments[2].raw(), &arguments[3].raw());
  }
  HRESULT item(const Value& index, Value& result) {
    Variant argument(index, Role::caller);
    Variant found;
    const HRESULT code = list_->Item(&argument.raw(), &found.raw());
    result = value_in(found.raw());
    return code;
  }
  HRESULT remove(const Value& index) {
    Variant argument(index, Role::caller);
    return list_->Remove(&argument.raw());
  }
  std::string items() {
    Pointer<IUnknown> unknown;
    EXPECT_EQ(list_->get__NewEnum(unknown.out()), S_OK);
    const auto walk = query<IEnumVARIANT>(unknown.get());
    std::string all;
    for (Variant each; walk->Next(1, &each.raw(), nullptr) == S_OK; each = Variant())
      all += *value_in(each.raw()).get_if<std::string>();
    return all;
  }
  // What the failed call before has left.
  static std::string told_error() {
    Pointer<IErrorInfo> info;
    if (GetErrorInfo(0, info.out()) != S_OK) return "nothing";
    BSTR source = nullptr;
    BSTR text = nullptr;
    GUID id;
    EXPECT_EQ(info->GetSource(&source), S_OK);
    EXPECT_EQ(info->GetDescription(&text), S_OK);
    EXPECT_EQ(info->GetGUID(&id), S_OK);
    EXPECT_EQ(id, IID__Collection);
    const std::string all = automation::com::text_of(source) + ": " + automation::com::text_of(text);
    SysFreeString(source);
    SysFreeString(text);
    return all;
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
  Pointer<IDispatch> names_ = read_names(dll_, company_);
  Pointer<_Collection> list_ = query<_Collection>(names_.get());
};

constexpr HRESULT raised(std::uint32_t number) {
  return static_cast<HRESULT>(0x800A0000U | number);
}

TEST_F(ReadCollection, TakesTheInterfaceByWhichClassicClientsHoldOne) {
  wchar_t text[39];
  StringFromGUID2(IID__Collection, text, 39);
  EXPECT_STREQ(text, L"{A4C46780-499F-101B-BB78-00AA00383CBB}");
  EXPECT_EQ(static_cast<IDispatch*>(list_.get()), names_.get())
      << "a variable of either type takes the pointer";
  EXPECT_EQ(query<IUnknown>(list_.get()).get(), query<IUnknown>(names_.get()).get());
  EXPECT_EQ(query<IDispatch>(list_.get()).get(), names_.get());
  EXPECT_FALSE(query<_CTranHead>(list_.get()));
}

TEST_F(ReadCollection, HasEverySlot) {
  LONG count = 99;
  ASSERT_EQ(list_->get_Count(&count), S_OK);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(add("m", "key"), S_OK);
  EXPECT_EQ(add("a", automation::Missing{}, 1), S_OK);
  EXPECT_EQ(add("z", "last", automation::Missing{}, "KEY"), S_OK);
  ASSERT_EQ(list_->get_Count(&count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(items(), "amz");
  Value found;
  EXPECT_EQ(item(1, found), S_OK);
  EXPECT_EQ(found, Value("a"));
  EXPECT_EQ(item("Key", found), S_OK);
  EXPECT_EQ(found, Value("m"));
  EXPECT_EQ(remove("KEY"), S_OK);
  EXPECT_EQ(remove(1), S_OK);
  EXPECT_EQ(items(), "z");
}

TEST_F(ReadCollection, TakesNullPointersForWhatMayBeLeftOut) {
  Variant text(Value("a"), Role::caller);
  EXPECT_EQ(list_->Add(&text.raw(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(items(), "a");
  EXPECT_EQ(list_->Add(nullptr, nullptr, nullptr, nullptr), E_POINTER);
  VARIANT junk;
  std::memset(&junk, 0xCC, sizeof junk);
  EXPECT_EQ(list_->Item(nullptr, &junk), E_POINTER);
  EXPECT_EQ(V_VT(&junk), VT_EMPTY);
  EXPECT_EQ(list_->Item(&text.raw(), nullptr), E_POINTER);
  EXPECT_EQ(list_->Remove(nullptr), E_POINTER);
  EXPECT_EQ(list_->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(list_->get__NewEnum(nullptr), E_POINTER);
  EXPECT_EQ(items(), "a");
}

TEST_F(ReadCollection, TakesVariantsThatReferToVariables) {
  BSTR text = SysAllocString(L"typed");
  VARIANT typed = reference(VT_BSTR, &text);
  VARIANT nested = reference(typed);
  ASSERT_EQ(list_->Add(&nested, &typed, nullptr, nullptr), S_OK);
  SysFreeString(text);
  SHORT first = 1;
  VARIANT position = reference(VT_I2, &first);
  Variant found;
  ASSERT_EQ(list_->Item(&position, &found.raw()), S_OK);
  EXPECT_EQ(value_in(found.raw()), Value("typed"));
  EXPECT_EQ(first, 1);
}

TEST_F(ReadCollection, TellsItsErrorsWithTheirSource) {
  ASSERT_TRUE(query<ISupportErrorInfo>(list_.get()));
  EXPECT_EQ(query<ISupportErrorInfo>(list_.get())->InterfaceSupportsErrorInfo(IID__Collection), S_OK);
  EXPECT_EQ(query<ISupportErrorInfo>(list_.get())->InterfaceSupportsErrorInfo(IID__CTranHead), S_FALSE);
  ASSERT_EQ(add("a", "key"), S_OK);
  EXPECT_EQ(told_error(), "nothing");
  Value found;
  EXPECT_EQ(item(2, found), raised(9));
  EXPECT_EQ(told_error(), "Tallyra.Collection: Subscript out of range");
  EXPECT_EQ(remove("other"), raised(5));
  EXPECT_EQ(told_error(), "Tallyra.Collection: Invalid procedure call or argument");
  EXPECT_EQ(add("b", "KEY"), raised(457));
  EXPECT_EQ(told_error(),
            "Tallyra.Collection: This key is already associated with an element of this collection");
  EXPECT_EQ(add("b", automation::Missing{}, 1, 1), raised(5));
  EXPECT_EQ(item(automation::Null{}, found), raised(13));
  EXPECT_EQ(told_error(), "Tallyra.Collection: Type mismatch");
  EXPECT_EQ(item(3, found), raised(9));
  EXPECT_EQ(item(1, found), S_OK);
  EXPECT_EQ(told_error(), "nothing") << "of an earlier call";
  EXPECT_EQ(items(), "a");
}

TEST_F(ReadCollection, DescribesItselfByTheTypeLibrary) {
  UINT count = 0;
  EXPECT_EQ(list_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  Pointer<ITypeInfo> info;
  ASSERT_EQ(list_->GetTypeInfo(0, LOCALE_NEUTRAL, info.out()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, IID__Collection);
  EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
  info->ReleaseTypeAttr(attributes);
  Pointer<ITypeInfo> none;
  EXPECT_EQ(list_->GetTypeInfo(1, LOCALE_NEUTRAL, none.out()), DISP_E_BADINDEX);
  EXPECT_EQ(list_->GetTypeInfo(0, LOCALE_NEUTRAL, nullptr), E_POINTER);
  EXPECT_EQ(list_->GetTypeInfoCount(nullptr), E_POINTER);

  const auto provider = query<IProvideClassInfo>(list_.get());
  ASSERT_TRUE(provider);
  Pointer<ITypeInfo> class_info;
  ASSERT_EQ(provider->GetClassInfo(class_info.out()), S_OK);
  ASSERT_EQ(class_info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, CLSID_Collection);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
  class_info->ReleaseTypeAttr(attributes);
  Pointer<IUnknown> object;
  EXPECT_EQ(dll_.get_class_object(CLSID_Collection, IID_IClassFactory, object.out_void()),
            CLASS_E_CLASSNOTAVAILABLE);
}

// The system calls slots by what the type library says of them.
TEST_F(ReadCollection, HasItsSlotsWhereTheTypeLibrarySays) {
  Pointer<ITypeInfo> info;
  ASSERT_EQ(list_->GetTypeInfo(0, LOCALE_NEUTRAL, info.out()), S_OK);
  const auto call = [&](DISPID id, WORD flags, std::vector<VARIANTARG> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    Variant result;
    EXPECT_EQ(info->Invoke(list_.get(), id, flags, &parameters, &result.raw(), nullptr, nullptr), S_OK) << id;
    return result;
  };
  Variant text(Value("a"), Role::caller);
  Variant key(Value("k"), Role::caller);
  Variant first(Value(1), Role::caller);
  call(1, DISPATCH_METHOD, {reference(text.raw()), reference(key.raw())});
  call(1, DISPATCH_METHOD, {reference(key.raw()), left_out(), reference(first.raw()), left_out()});
  EXPECT_EQ(value_in(call(2, DISPATCH_PROPERTYGET, {}).raw()), Value(2));
  EXPECT_EQ(value_in(call(0, DISPATCH_METHOD, {reference(key.raw())}).raw()), Value("a"));
  const Variant walk = call(DISPID_NEWENUM, DISPATCH_PROPERTYGET, {});
  ASSERT_EQ(V_VT(&walk.raw()), VT_UNKNOWN);
  EXPECT_TRUE(query<IEnumVARIANT>(V_UNKNOWN(&walk.raw())));
  call(3, DISPATCH_METHOD, {reference(first.raw())});
  EXPECT_EQ(items(), "a");
}

TEST(ReadCollectionsLife, KeepsTheDllLoadedAsLongAsItIsHeld) {
  const ServerDll dll;
  const behaviour::CompanyDatabase company;
  Pointer<IDispatch> names;
  in_own_apartment([&] { names = read_names(dll, company); });
  EXPECT_EQ(dll.can_unload_now(), S_FALSE);
  names = {};
  EXPECT_EQ(dll.can_unload_now(), S_OK);
}

}  // namespace
}  // namespace tallyra::tests::com
