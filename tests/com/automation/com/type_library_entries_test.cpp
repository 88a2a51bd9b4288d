#include "automation/com/type_library_entries.h"

#include <gtest/gtest.h>

#include "tests/com/registered_copies.h"

// What of the type library stays when a copy of the DLL is unregistered.
namespace tallyra::tests::com {
namespace {

TEST_F(RegisteredCopies, AnotherVersionOfTheTypeLibraryStaysWithItsInterfaces) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  set_text(HKEY_LOCAL_MACHINE, library_key + L"\\1.1\\0\\win32", fresh_.file.path());
  set_text(HKEY_LOCAL_MACHINE, interface_key + L"\\TypeLib", L"1.1", L"Version");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_FALSE(is_there(file_key));
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library_key + L"\\1.1\\0\\win32"), fresh_.file.path());
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, interface_key), L"_CRevAddr");
  EXPECT_TRUE(is_there(interface_key + L"\\ProxyStubClsid32"));
  EXPECT_FALSE(is_there(L"Interface\\" + guid_text(IID__CStockClose)));
  remove_key(HKEY_LOCAL_MACHINE, library_key);
  remove_key(HKEY_LOCAL_MACHINE, interface_key);
}

TEST_F(RegisteredCopies, AnInterfaceOfAnotherLibraryStays) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  set_text(HKEY_LOCAL_MACHINE, interface_key + L"\\TypeLib", L"{11111111-2222-3333-4444-555555555555}");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, interface_key), L"_CRevAddr");
  EXPECT_FALSE(is_there(library_key + L"\\1.0"));
  remove_key(HKEY_LOCAL_MACHINE, interface_key);
}

TEST_F(RegisteredCopies, TheTypeLibraryOfAnotherOneStaysWithItsInterfaces) {
  ASSERT_EQ(fresh_.install(HKEY_LOCAL_MACHINE), S_OK);
  point(close_key, old_.file.path());
  const auto library = text_at(HKEY_LOCAL_MACHINE, library_key + L"\\1.0");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_FALSE(is_there(close_key));
  EXPECT_FALSE(is_there(L"Tallyra.CStockClose\\CLSID"));
  EXPECT_TRUE(is_there(address_key));
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library_key + L"\\1.0"), library);
  EXPECT_TRUE(is_there(interface_key + L"\\TypeLib"));
  EXPECT_EQ(fresh_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
}

// Of a library for programs of another kind, which lies elsewhere.
TEST_F(RegisteredCopies, AnotherFileOfTheSameVersionKeepsTheLibrary) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  set_text(HKEY_LOCAL_MACHINE, library_key + L"\\1.0\\0\\win64", L"C:\\elsewhere\\Tallyra.dll");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_FALSE(is_there(file_key));
  EXPECT_TRUE(is_there(library_key + L"\\1.0\\0\\win64"));
  EXPECT_TRUE(is_there(library_key + L"\\1.0\\FLAGS"));
  EXPECT_TRUE(is_there(interface_key + L"\\ProxyStubClsid32"));
  EXPECT_FALSE(is_there(close_key));
  set_text(HKEY_LOCAL_MACHINE, file_key, old_.file.path());
  remove_key(HKEY_LOCAL_MACHINE, library_key + L"\\1.0\\0\\win64");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
}

}  // namespace
}  // namespace tallyra::tests::com
