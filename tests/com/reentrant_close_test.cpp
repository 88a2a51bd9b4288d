#include <gtest/gtest.h>
#include <ocidl.h>

#include <string>
#include <utility>
#include <vector>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "automation/com/text.h"
#include "company/database.h"
#include "company/generator.h"
#include "tallyra.h"
#include "tests/com/client_window.h"
#include "tests/com/counting_sink.h"
#include "tests/com/own_apartment.h"
#include "tests/com/server_dll.h"
#include "tests/com/wire_call.h"
#include "tests/support/test_folder.h"

// A month close yields to its client's message loop, whose windows may call the component again.
namespace tallyra::tests::com {
namespace {

constexpr float no_right = 10000016;
constexpr float failed = -2147467259.0F;

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

  // A new object with a session of its own on the company.
  template <class I>
  Pointer<I> opened(REFCLSID class_id, const char* user = "ADMIN", const char* language = "EN") const {
    auto object = dll_.create<I>(class_id);
    EXPECT_EQ(object->put_ConnectionString(Text(connection_string(5000)).in()), S_OK);
    EXPECT_EQ(object->put_UserID(Text(user).in()), S_OK);
    EXPECT_EQ(object->put_Language(Text(language).in()), S_OK);
    EXPECT_EQ(object->put_SystemDatabase(Text("MSACCESS").in()), S_OK);
    return object;
  }

  // A session waits so many milliseconds for a lock.
  std::string connection_string(int timeout) const {
    return "DRIVER={SQLite3};Database=" + folder_.file("company.db") + ";Timeout=" + std::to_string(timeout);
  }

  // Closes January, or another month; the object need not outlive the call.
  float closed_by(_CStockClose* close, const char* date = "2024/01/31") const {
    const Variant day(Value(date), Role::caller);
    IDispatch* names = list_of("CLOSEDT").detach();
    IDispatch* values = list_of(date).detach();
    float result = 5;
    EXPECT_EQ(close->Insert(day.raw(), &names, &values, &result), S_OK);
    names->Release();
    values->Release();
    return result;
  }

  // Whether the record of that close is found.
  static bool reads(_CStockClose* close, const char* date) {
    IDispatch* names = list_of("x").detach();
    IDispatch* values = list_of("x").detach();
    float result = 5;
    EXPECT_EQ(close->Read(Text(date).in(), &names, &values, &result), S_OK);
    EXPECT_EQ(result, 100.0F);
    names->Release();
    values->Release();
    float number = 5;
    EXPECT_EQ(close->get_ErrNumber(&number), S_OK);
    return number == 0;
  }

  std::vector<std::vector<std::string>> query(const char* statement) const {
    return company::Database(folder_.file("company.db")).query(statement);
  }

  template <class I>
  static float error_number(const Pointer<I>& object) {
    float number = -1;
    EXPECT_EQ(object->get_ErrNumber(&number), S_OK);
    return number;
  }
  template <class I>
  static std::string error_description(const Pointer<I>& object) {
    BSTR description = nullptr;
    EXPECT_EQ(object->get_ErrDescription(&description), S_OK);
    std::string text = automation::com::text_of(description);
    SysFreeString(description);
    return text;
  }

  void expect_january_closed() const {
    const auto closes = query("Select CLOSEDT From STKCLOSEHD Where CLOSEDT>='2024-01-01'");
    ASSERT_EQ(closes.size(), 1U);
    EXPECT_EQ(closes.front().front(), "2024-01-31 00:00:00");
  }

  static Pointer<IDispatch> list_of(const Value& item) {
    const auto list = automation::make_object<automation::Collection>();
    list.call("Add", item);
    return automation::com::ComObject::make(list, Role::caller);
  }

  TestFolder folder_;
  ServerDll dll_;
  const Variant day_{Value("2024/01/31"), Role::caller};
};

TEST_F(ReentrantClose, TakesPropertiesMeanwhileAndGoesOnWithThem) {
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  int calls_back = 0;
  const ClientWindow window([&] {
    ++calls_back;
    EXPECT_EQ(close->put_UserID(Text("SOMEBODY").in()), S_OK);
    EXPECT_EQ(close->put_Language(Text("DE").in()), S_OK);
    EXPECT_EQ(close->put_SystemDatabase(Text("MSSQLSERVER").in()), S_OK);
    EXPECT_EQ(close->put_ConnectionString(Text(connection_string(6000)).in()), S_OK);
    EXPECT_EQ(error_number(close), 0.0F);
    EXPECT_EQ(error_description(close), "");
  });

  EXPECT_EQ(closed_by(close.get()), 100.0F) << error_description(close);
  EXPECT_GT(calls_back, 1);
  expect_january_closed();
  const auto users = query(
      "Select Distinct STKTRANDT.ADDBY From STKTRANDT Inner Join STKTRANHD"
      " On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where TRANTYPE In ('STK027CLOSE','STKCLOSEALL') Order By 1");
  EXPECT_EQ(users, (std::vector<std::vector<std::string>>{{"ADMIN"}, {"SOMEBODY"}}));
}

TEST_F(ReentrantClose, AnswersItsClientMeanwhileAsOtherObjectsDo) {
  company::Database(folder_.file("company.db"))
      .execute("Insert Into STKCLOSEHD(CLOSEDT) Values('2023-12-31 00:00:00')");
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  int calls_back = 0;
  const ClientWindow window([&] {
    ++calls_back;
    const auto address = opened<_CRevAddr>(CLSID_CRevAddr);
    IDispatch* names = list_of("x").detach();
    IDispatch* values = list_of("x").detach();
    float result = 5;
    EXPECT_EQ(address->Read(Text("nowhere").in_out(), &names, &values, &result), S_OK);
    EXPECT_EQ(result, 100.0F);
    EXPECT_EQ(error_number(address), 10000003.0F);
    names->Release();
    values->Release();
    EXPECT_FALSE(reads(close.get(), "2023/11/30"));
    // What succeeds last decides: the run asks the same error fields.
    EXPECT_TRUE(reads(close.get(), "2023/12/31"));
  });

  EXPECT_EQ(closed_by(close.get()), 100.0F) << error_description(close);
  EXPECT_GT(calls_back, 1);
  expect_january_closed();
}

TEST_F(ReentrantClose, EndsWithTheErrorThatACallMeanwhileLeaves) {
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  bool read = false;
  {
    const ClientWindow window([&] {
      if (!std::exchange(read, true)) {
        EXPECT_FALSE(reads(close.get(), "2023/12/31"));
      }
    });
    EXPECT_EQ(closed_by(close.get()), 0.0F);
  }
  EXPECT_TRUE(read);
  EXPECT_EQ(error_number(close), 10000003.0F);
  EXPECT_TRUE(query("Select TRANNO From STKTRANHD Where TRANTYPE In ('STK027CLOSE','STKCLOSEALL')").empty());
  EXPECT_EQ(closed_by(close.get()), 100.0F) << error_description(close);
  expect_january_closed();
}

// SQLite lets one write at a time: the second close waits for the first one, below it on the same thread.
TEST_F(ReentrantClose, ACloseWithinTheCloseEndsWithTheErrorOfTheLock) {
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  EXPECT_EQ(close->put_ConnectionString(Text(connection_string(50)).in()), S_OK);
  bool tried = false;
  {
    const ClientWindow window([&] {
      if (std::exchange(tried, true)) return;
      EXPECT_EQ(closed_by(close.get(), "2024/02/29"), 0.0F);
      EXPECT_EQ(error_number(close), failed);
      EXPECT_EQ(error_description(close), "database is locked");
    });
    EXPECT_EQ(closed_by(close.get()), 0.0F);
  }
  EXPECT_TRUE(tried);
  EXPECT_EQ(error_number(close), failed);
  EXPECT_EQ(error_description(close), "database is locked");
  EXPECT_TRUE(query("Select TRANNO From STKTRANHD Where TRANTYPE In ('STK027CLOSE','STKCLOSEALL')").empty());
  EXPECT_EQ(closed_by(close.get()), 100.0F) << error_description(close);
  expect_january_closed();
}

// The object that was first used last decides the session of the thread's collaborators, also in the middle
// of a close: what is left of the close asks them as that user, and so does every later call of the object.
TEST_F(ReentrantClose, EndsWellThoughAnObjectOfAnotherUserIsFirstUsedMeanwhile) {
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  const auto stranger = opened<_CRevAddr>(CLSID_CRevAddr, "SOMEBODY", "DE");
  int calls_back = 0;
  const ClientWindow window([&] {
    ++calls_back;
    IDispatch* names = list_of("ADDRNM").detach();
    IDispatch* values = list_of("x").detach();
    float result = 5;
    EXPECT_EQ(stranger->Update(Text("nowhere").in_out(), &names, &values, &result), S_OK);
    EXPECT_EQ(result, 0.0F);
    EXPECT_EQ(error_number(stranger), no_right);
    names->Release();
    values->Release();
  });

  EXPECT_EQ(closed_by(close.get()), 100.0F) << error_description(close);
  EXPECT_EQ(error_number(close), 0.0F);
  EXPECT_GT(calls_back, 0);
  expect_january_closed();
  const auto users = query(
      "Select Distinct STKTRANDT.ADDBY From STKTRANDT Inner Join STKTRANHD"
      " On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where TRANTYPE In ('STK027CLOSE','STKCLOSEALL')");
  ASSERT_EQ(users.size(), 1U) << "every line is written by the user of the close";
  EXPECT_EQ(users.front().front(), "ADMIN");

  float result = 5;
  EXPECT_EQ(close->Delete(day_.raw(), &result), S_OK);
  EXPECT_EQ(result, 0.0F);
  EXPECT_EQ(error_number(close), no_right);
  EXPECT_EQ(error_description(close), error_description(stranger)) << "in the language of the other user";
  const auto fresh = opened<_CStockClose>(CLSID_CStockClose);
  EXPECT_EQ(fresh->Delete(day_.raw(), &result), S_OK);
  EXPECT_EQ(result, 100.0F) << error_description(fresh);
}

TEST_F(ReentrantClose, EndsWellThoughItsClientLetsTheObjectGoMeanwhile) {
  CountingSink sink(DIID___CStockClose);
  in_own_apartment([&] {
    _CStockClose* const close = opened<_CStockClose>(CLSID_CStockClose).detach();
    {
      const auto container = automation::com::query<IConnectionPointContainer>(close);
      Pointer<IConnectionPoint> point;
      ASSERT_EQ(container->FindConnectionPoint(DIID___CStockClose, point.out()), S_OK);
      DWORD cookie = 0;
      ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
    }
    bool let_go = false;
    const ClientWindow window([&] {
      if (!std::exchange(let_go, true)) {
        EXPECT_EQ(close->Release(), 1U) << "the running method keeps it";
      }
    });
    EXPECT_EQ(closed_by(close), 100.0F);
    EXPECT_TRUE(let_go);
    EXPECT_EQ(sink.references, 1U) << "the object went with its method, and what it held with it";
  });
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
  expect_january_closed();
}

TEST_F(ReentrantClose, RaisesNoneOfTheDeclaredEvents) {
  const auto close = opened<_CStockClose>(CLSID_CStockClose);
  const auto container = automation::com::query<IConnectionPointContainer>(close.get());
  Pointer<IConnectionPoint> point;
  ASSERT_EQ(container->FindConnectionPoint(DIID___CStockClose, point.out()), S_OK);
  CountingSink sink(DIID___CStockClose);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  EXPECT_EQ(closed_by(close.get()), 100.0F) << error_description(close);
  EXPECT_EQ(sink.calls, 0);
  EXPECT_EQ(sink.references, 2U) << "and stays connected";
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

}  // namespace
}  // namespace tallyra::tests::com
