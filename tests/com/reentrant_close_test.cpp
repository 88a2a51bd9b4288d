#include <gtest/gtest.h>

#include <functional>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "automation/com/text.h"
#include "samples/company/database.h"
#include "samples/company/generator.h"
#include "tallyra.h"
#include "tests/com/server_dll.h"
#include "tests/com/wire_call.h"
#include "tests/folder/test_folder.h"

// A month close yields to its client's message loop, whose windows may call the component again.
namespace tallyra::tests::com {
namespace {

namespace company = samples::company;

// A window of the client's that does something again and again when the client's loop gets a turn.
class ClientWindow {
 public:
  explicit ClientWindow(std::function<void()> work) : work_(std::move(work)) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TallyraReentrantClose";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, description.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              description.hInstance, nullptr);
    SetWindowLongW(window_, GWL_USERDATA, reinterpret_cast<LONG>(this));
    SetTimer(window_, 1, USER_TIMER_MINIMUM, nullptr);
  }
  ~ClientWindow() { DestroyWindow(window_); }
  ClientWindow(const ClientWindow&) = delete;
  ClientWindow& operator=(const ClientWindow&) = delete;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
    if (message != WM_TIMER) return DefWindowProcW(window, message, wide, longer);
    reinterpret_cast<ClientWindow*>(GetWindowLongW(window, GWL_USERDATA))->work_();
    return 0;
  }

  std::function<void()> work_;
  HWND window_;
};

class Text {
 public:
  Text(const std::string& content) : bstr_(automation::com::new_bstr(content)) {}
  ~Text() { SysFreeString(bstr_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  BSTR in() const { return bstr_; }
  BSTR* in_out() { return &bstr_; }

 private:
  BSTR bstr_;
};

class ReentrantClose : public testing::Test {
 protected:
  ReentrantClose() {
    company::Options options;
    options.database = folder_.file("company.db");
    options.schema = SQLITE_SCHEMA;
    options.parts = 60;
    options.lines = 1200;
    company::generate(options, [](int) {});
  }

  template <class I>
  Pointer<I> opened(REFCLSID class_id) const {
    auto object = dll_.create<I>(class_id);
    EXPECT_EQ(object->put_ConnectionString(
                  Text("DRIVER={SQLite3};Database=" + folder_.file("company.db") + ";Timeout=5000").in()),
              S_OK);
    EXPECT_EQ(object->put_UserID(Text("ADMIN").in()), S_OK);
    EXPECT_EQ(object->put_SystemDatabase(Text("MSACCESS").in()), S_OK);
    return object;
  }

  static Pointer<IDispatch> list_of(const Value& item) {
    const auto list = automation::make_object<automation::Collection>();
    list.call("Add", item);
    return automation::com::ComObject::make(list, Role::caller);
  }

  TestFolder folder_;
  ServerDll dll_;
};

TEST_F(ReentrantClose, EndsWellThoughItsClientCallsBackMeanwhile) {
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  const Variant day(Value("2024/01/31"), Role::caller);
  int calls_back = 0;
  const ClientWindow window([&] {
    ++calls_back;
    float result = 5;
    EXPECT_EQ(close->Delete(day.raw(), &result), RPC_E_CALL_REJECTED);
    EXPECT_EQ(result, 0.0F);
    EXPECT_EQ(close->put_UserID(Text("SOMEBODY").in()), RPC_E_CALL_REJECTED);
    float number = 5;
    EXPECT_EQ(close->get_ErrNumber(&number), S_OK);
    EXPECT_EQ(number, 0.0F);

    const auto address = opened<_CRevAddr>(CLSID_CRevAddr);
    auto names = list_of("x");
    auto values = list_of("x");
    IDispatch* names_variable = names.detach();
    IDispatch* values_variable = values.detach();
    Text key("nowhere");
    EXPECT_EQ(address->Read(key.in_out(), &names_variable, &values_variable, &result), S_OK);
    EXPECT_EQ(result, 100.0F);
    EXPECT_EQ(address->get_ErrNumber(&number), S_OK);
    EXPECT_EQ(number, 10000003.0F);
    names_variable->Release();
    values_variable->Release();
  });

  IDispatch* names = list_of("CLOSEDT").detach();
  IDispatch* values = list_of("2024/01/31").detach();
  float result = 0;
  EXPECT_EQ(close->Insert(day.raw(), &names, &values, &result), S_OK);
  BSTR description = nullptr;
  EXPECT_EQ(close->get_ErrDescription(&description), S_OK);
  EXPECT_EQ(result, 100.0F) << automation::com::text_of(description);
  SysFreeString(description);
  names->Release();
  values->Release();
  EXPECT_GT(calls_back, 1);

  company::Database database(folder_.file("company.db"));
  const auto closes = database.query("Select CLOSEDT From STKCLOSEHD");
  ASSERT_EQ(closes.size(), 1U);
  EXPECT_EQ(closes.front().front(), "2024-01-31 00:00:00");
}

}  // namespace
}  // namespace tallyra::tests::com
