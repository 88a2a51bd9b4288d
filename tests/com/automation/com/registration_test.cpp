#include <gtest/gtest.h>

#include <cwctype>
#include <set>

#include "automation/com/text.h"
#include "server/class_table.h"
#include "tallyra.h"
#include "tests/com/registered_classes.h"
#include "tests/com/server_dll.h"

// What registering leaves in the system's registry, and that unregistering takes all of it away. The entries
// that were there before are put back at the end.
namespace tallyra::tests::com {
namespace {

// What is there now and was not before, in small letters: a key keeps the case in which somebody else has
// made it.
std::set<std::wstring> added(const std::set<std::wstring>& before, const std::set<std::wstring>& now) {
  std::set<std::wstring> lines;
  for (std::wstring line : now) {
    if (before.contains(line)) continue;
    for (wchar_t& letter : line) letter = static_cast<wchar_t>(std::towlower(letter));
    lines.insert(line);
  }
  return lines;
}

class Registration : public testing::Test {
 protected:
  Registration() : was_registered_(text_at(HKEY_LOCAL_MACHINE, L"Tallyra.CRevAddr\\CLSID") != L"(none)") {
    dll_.unregister_server();
    dll_.install(false, L"user");
    machine_before_ = registered(HKEY_LOCAL_MACHINE);
    user_before_ = registered(HKEY_CURRENT_USER);
  }
  ~Registration() override {
    if (was_registered_) dll_.register_server();
  }

  ServerDll dll_;
  bool was_registered_;
  std::set<std::wstring> machine_before_;
  std::set<std::wstring> user_before_;
};

TEST_F(Registration, ForTheMachineMakesEveryClassCreatableByItsName) {
  ASSERT_EQ(dll_.register_server(), S_OK);
  for (const auto& table : server::classes()) {
    SCOPED_TRACE(table.name);
    const std::wstring prog_id = L"Tallyra." + automation::com::to_utf16(table.name);
    CLSID class_id;
    CLSID versioned_id;
    ASSERT_EQ(CLSIDFromProgID(prog_id.c_str(), &class_id), S_OK);
    ASSERT_EQ(CLSIDFromProgID((prog_id + L".1").c_str(), &versioned_id), S_OK);
    EXPECT_EQ(class_id, versioned_id);
    const std::wstring key = L"CLSID\\" + guid_text(class_id);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, prog_id + L"\\CurVer"), prog_id + L".1");
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\ProgID"), prog_id + L".1");
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\VersionIndependentProgID"), prog_id);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\TypeLib"), guid_text(LIBID_Tallyra));
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\InprocServer32"), ServerDll::path());
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\Implemented Categories"), L"(none)")
        << "nothing says that it is safe for scripting";

    Pointer<IDispatch> object;
    ASSERT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.out_void()),
              S_OK);
  }
  Pointer<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_Tallyra, 1, 0, LOCALE_NEUTRAL, library.out()), S_OK);
  EXPECT_EQ(registered(HKEY_CURRENT_USER), user_before_);

  ASSERT_EQ(dll_.register_server(), S_OK) << "again, over itself";
  ASSERT_EQ(dll_.unregister_server(), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine_before_);
  EXPECT_EQ(dll_.unregister_server(), S_OK) << "what is not there is no error";
}

TEST_F(Registration, NamesTheTypeLibraryAndTheMarshalerOfEveryInterface) {
  ASSERT_EQ(dll_.register_server(), S_OK);
  const std::wstring path = ServerDll::path();
  const std::wstring library = L"TypeLib\\" + guid_text(LIBID_Tallyra) + L"\\1.0";
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library), L"Tallyra stock management 1.0");
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library + L"\\0\\win32"), path);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library + L"\\FLAGS"), L"0");
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library + L"\\HELPDIR"), path.substr(0, path.rfind(L'\\')));
  struct Interface {
    IID id;
    const wchar_t* name;
    const wchar_t* marshaler;
  };
  const Interface interfaces[] = {
      {IID__CRevAddr, L"_CRevAddr", L"{00020424-0000-0000-C000-000000000046}"},
      {IID__CTranDetail, L"_CTranDetail", L"{00020424-0000-0000-C000-000000000046}"},
      {DIID___CStockClose, L"__CStockClose", L"{00020420-0000-0000-C000-000000000046}"},
  };
  for (const auto& each : interfaces) {
    const std::wstring key = L"Interface\\" + guid_text(each.id);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key), each.name);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\ProxyStubClsid32"), each.marshaler);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\TypeLib"), guid_text(LIBID_Tallyra));
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\TypeLib", L"Version"), L"1.0");
  }
  ASSERT_EQ(dll_.unregister_server(), S_OK);
}

TEST_F(Registration, ForTheUserWritesWhatItWritesForTheMachine) {
  ASSERT_EQ(dll_.register_server(), S_OK);
  const auto for_machine = added(machine_before_, registered(HKEY_LOCAL_MACHINE));
  ASSERT_EQ(dll_.unregister_server(), S_OK);
  ASSERT_EQ(dll_.install(true, L"user"), S_OK);
  auto for_user = added(user_before_, registered(HKEY_CURRENT_USER));
  // A user without any class has not even these.
  for (const wchar_t* container : {L"\\clsid", L"\\interface", L"\\typelib"}) for_user.erase(container);
  EXPECT_EQ(for_user, for_machine);
  EXPECT_GT(for_machine.size(), 200U);
  ASSERT_EQ(dll_.install(false, L"user"), S_OK);
}

TEST_F(Registration, ForTheUserLeavesTheMachineAlone) {
  ASSERT_EQ(dll_.install(true, L"user"), S_OK);
  EXPECT_NE(text_at(HKEY_CURRENT_USER, L"Tallyra.CStockClose\\CLSID"), L"(none)");
  EXPECT_NE(text_at(HKEY_CURRENT_USER, L"TypeLib\\" + guid_text(LIBID_Tallyra) + L"\\1.0\\0\\win32"),
            L"(none)");
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine_before_);
  ASSERT_EQ(dll_.install(false, L"user"), S_OK);
  EXPECT_EQ(registered(HKEY_CURRENT_USER), user_before_);
}

// Another class of somebody's that has a ProgID, for as long as it lives.
class ForeignOwner {
 public:
  ForeignOwner(HKEY root, std::wstring prog_id) : root_(root), prog_id_(std::move(prog_id)) {
    set_text(root_, prog_id_, L"Somebody's own");
    set_text(root_, prog_id_ + L"\\CLSID", L"{11111111-2222-3333-4444-555555555555}");
    set_text(root_, prog_id_ + L"\\CurVer", prog_id_ + L".6");
    set_text(root_, prog_id_ + L"\\DefaultIcon", L"own.dll,1");
  }
  ~ForeignOwner() { remove_key(root_, prog_id_); }
  ForeignOwner(const ForeignOwner&) = delete;
  ForeignOwner& operator=(const ForeignOwner&) = delete;

 private:
  HKEY root_;
  std::wstring prog_id_;
};

// A key in the way of a class registered late: nothing lasting can be made below a key that does not last.
class Obstacle {
 public:
  explicit Obstacle(HKEY root = HKEY_LOCAL_MACHINE, const std::wstring& name = L"Tallyra.CSTKController")
      : root_(root), path_(std::wstring(classes_path) + L"\\" + name) {
    RegDeleteTreeW(root_, path_.c_str());
    // A user without any class may not even have the branch, which must not become one that does not last.
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyW(root_, classes_path, &key), ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(RegCreateKeyExW(root_, path_.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
  }
  ~Obstacle() {
    RegDeleteTreeW(root_, path_.c_str());
    // Refused where it holds other keys, which were there before.
    const std::wstring container = path_.substr(0, path_.rfind(L'\\'));
    if (container != classes_path) RegDeleteKeyW(root_, container.c_str());
  }
  Obstacle(const Obstacle&) = delete;
  Obstacle& operator=(const Obstacle&) = delete;

 private:
  HKEY root_;
  std::wstring path_;
};

// A key that everybody may read and nobody may write to, for as long as it lives.
class ReadOnlyKey {
 public:
  ReadOnlyKey(HKEY root, const std::wstring& name)
      : root_(root), path_(std::wstring(classes_path) + L"\\" + name) {
    set_text(root, name, L"Somebody's own");
    BYTE everybody[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof everybody;
    EXPECT_TRUE(CreateWellKnownSid(WinWorldSid, nullptr, everybody, &size));
    alignas(ACL) BYTE content[256];
    ACL* const list = reinterpret_cast<ACL*>(content);
    EXPECT_TRUE(InitializeAcl(list, sizeof content, ACL_REVISION));
    EXPECT_TRUE(AddAccessDeniedAce(list, ACL_REVISION, KEY_SET_VALUE | KEY_CREATE_SUB_KEY, everybody));
    EXPECT_TRUE(AddAccessAllowedAce(list, ACL_REVISION, KEY_ALL_ACCESS, everybody));
    SECURITY_DESCRIPTOR rights;
    EXPECT_TRUE(InitializeSecurityDescriptor(&rights, SECURITY_DESCRIPTOR_REVISION));
    EXPECT_TRUE(SetSecurityDescriptorDacl(&rights, TRUE, list, FALSE));
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(root_, path_.c_str(), 0, WRITE_DAC, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &rights), ERROR_SUCCESS);
    RegCloseKey(key);
  }
  ~ReadOnlyKey() { EXPECT_EQ(RegDeleteKeyW(root_, path_.c_str()), ERROR_SUCCESS); }
  ReadOnlyKey(const ReadOnlyKey&) = delete;
  ReadOnlyKey& operator=(const ReadOnlyKey&) = delete;

 private:
  HKEY root_;
  std::wstring path_;
};

TEST_F(Registration, WithoutTheRightsIsDeniedAndLeavesEverythingAsItWas) {
  // The last class: everything before it has been written when the denial comes.
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    const ReadOnlyKey denied(root, L"Tallyra.CTranHead");
    const auto machine = registered(HKEY_LOCAL_MACHINE);
    const auto user = registered(HKEY_CURRENT_USER);
    EXPECT_EQ(root == HKEY_LOCAL_MACHINE ? dll_.register_server() : dll_.install(true, L"user"),
              E_ACCESSDENIED);
    EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine);
    EXPECT_EQ(registered(HKEY_CURRENT_USER), user);
  }
}

TEST_F(Registration, AnotherClassKeepsItsNameUnlessToldOtherwise) {
  const ForeignOwner owner(HKEY_LOCAL_MACHINE, L"Tallyra.CStockClose");
  const auto before = registered(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(dll_.register_server(), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before);
  EXPECT_EQ(dll_.unregister_server(), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before) << "nor is it taken away";
  EXPECT_EQ(dll_.install(true, L"replace"), S_OK);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, L"Tallyra.CStockClose\\CLSID"), guid_text(CLSID_CStockClose));
  EXPECT_EQ(dll_.register_server(), S_OK) << "again, over itself";
  EXPECT_EQ(dll_.unregister_server(), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before) << "what was replaced is given back";
}

TEST_F(Registration, TheWordsOfTheCommandLineAreWholeAndKnown) {
  EXPECT_EQ(dll_.install(true, L"\tUSER  Replace "), S_OK);
  EXPECT_NE(text_at(HKEY_CURRENT_USER, L"Tallyra.CStockClose\\CLSID"), L"(none)");
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine_before_);
  EXPECT_EQ(dll_.install(false, L"User"), S_OK);
  for (const wchar_t* words : {L"users", L"user replaced", L"/user", L"user,replace"}) {
    EXPECT_EQ(dll_.install(true, words), E_INVALIDARG);
    EXPECT_EQ(dll_.install(false, words), E_INVALIDARG);
  }
  EXPECT_EQ(registered(HKEY_CURRENT_USER), user_before_);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine_before_);
}

TEST_F(Registration, AClassOfTheOtherBranchKeepsItsNameToo) {
  for (const auto& [foreign, words] : {std::pair(HKEY_LOCAL_MACHINE, L"user"), {HKEY_CURRENT_USER, L""}}) {
    const ForeignOwner owner(foreign, L"Tallyra.CStockClose.1");
    const auto machine = registered(HKEY_LOCAL_MACHINE);
    const auto user = registered(HKEY_CURRENT_USER);
    EXPECT_EQ(dll_.install(true, words), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine);
    EXPECT_EQ(registered(HKEY_CURRENT_USER), user);
    EXPECT_EQ(dll_.install(true, (std::wstring(words) + L" replace").c_str()), S_OK);
    EXPECT_EQ(dll_.install(false, words), S_OK);
    EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine);
    EXPECT_EQ(registered(HKEY_CURRENT_USER), user);
  }
}

TEST_F(Registration, AFailureGivesBackWhatItHasReplaced) {
  const ForeignOwner owner(HKEY_LOCAL_MACHINE, L"Tallyra.CTranHead");
  const Obstacle obstacle;
  const auto before = registered(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(dll_.install(true, L"replace"), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before);
}

TEST_F(Registration, AFailureLeavesAnEarlierRegistrationAsItWas) {
  ASSERT_EQ(dll_.register_server(), S_OK);
  set_text(HKEY_LOCAL_MACHINE, L"Tallyra.CTranHead", L"An earlier description");
  {
    const Obstacle obstacle;
    const auto before = registered(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(dll_.register_server(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, L"Tallyra.CTranHead"), L"An earlier description");
  }
  EXPECT_EQ(dll_.unregister_server(), S_OK);
}

// The runtime library of classic clients registers that interface, with a marshaler of its own.
TEST_F(Registration, LeavesTheInterfaceOfCollectionsToItsOwner) {
  const std::wstring key = L"Interface\\" + guid_text(IID__Collection);
  ASSERT_EQ(text_at(HKEY_LOCAL_MACHINE, key), L"(none)");
  ASSERT_EQ(dll_.register_server(), S_OK);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key), L"(none)");
  ASSERT_EQ(dll_.unregister_server(), S_OK);

  set_text(HKEY_LOCAL_MACHINE, key, L"_Collection");
  set_text(HKEY_LOCAL_MACHINE, key + L"\\ProxyStubClsid32", L"{11111111-2222-3333-4444-555555555555}");
  set_text(HKEY_LOCAL_MACHINE, key + L"\\TypeLib", guid_text(LIBID_Tallyra));
  const auto before = registered(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(dll_.register_server(), S_OK);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, key + L"\\ProxyStubClsid32"),
            L"{11111111-2222-3333-4444-555555555555}");
  ASSERT_EQ(dll_.unregister_server(), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before);
  remove_key(HKEY_LOCAL_MACHINE, key);
}

TEST_F(Registration, AFailureHalfWayLeavesNothingBehind) {
  // An obstacle refuses a class, the library, an interface.
  const std::wstring obstacles[] = {
      L"Tallyra.CSTKController",
      L"CLSID\\" + guid_text(CLSID_CTranHead),
      L"TypeLib\\" + guid_text(LIBID_Tallyra),
      L"Interface\\" + guid_text(IID__CStockClose),
  };
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
    for (const auto& name : obstacles) {
      SCOPED_TRACE(testing::PrintToString(name));
      const Obstacle obstacle(root, name);
      const HRESULT code = root == HKEY_LOCAL_MACHINE ? dll_.register_server() : dll_.install(true, L"user");
      EXPECT_EQ(code, HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    }
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine_before_);
  EXPECT_EQ(registered(HKEY_CURRENT_USER), user_before_);
}

}  // namespace
}  // namespace tallyra::tests::com
