#include <gtest/gtest.h>

#include "automation/com/text.h"
#include "server/class_table.h"
#include "tests/com/server_dll.h"

// The names that the classes of the DLL answer to.
namespace tallyra::tests::com {
namespace {

HRESULT look_up(IDispatch* object, std::wstring name, DISPID& id) {
  LPOLESTR names = name.data();
  return object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
}

TEST(MemberNames, AreThoseOfTheClassAndNothingThatItInherits) {
  const ServerDll dll;
  for (const auto& table : server::classes()) {
    SCOPED_TRACE(table.name);
    CLSID class_id;
    ASSERT_EQ(CLSIDFromProgID((L"Tallyra." + automation::com::to_utf16(table.name)).c_str(), &class_id),
              S_OK);
    const auto object = dll.create<IDispatch>(class_id);
    ASSERT_TRUE(object);
    DISPID id = 0;
    for (const auto& member : table.members) {
      EXPECT_EQ(look_up(object.get(), automation::com::to_utf16(member.name), id), S_OK) << member.name;
      EXPECT_EQ(id, member.id) << member.name;
    }
    for (const wchar_t* name : {L"QueryInterface", L"AddRef", L"Release", L"GetTypeInfoCount", L"GetTypeInfo",
                                L"GetIDsOfNames", L"Invoke", L"put_UserID", L""}) {
      EXPECT_EQ(look_up(object.get(), name, id), DISP_E_UNKNOWNNAME) << testing::PrintToString(name);
      EXPECT_EQ(id, DISPID_UNKNOWN) << testing::PrintToString(name);
    }
  }
}

}  // namespace
}  // namespace tallyra::tests::com
