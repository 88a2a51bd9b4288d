#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "tests/com/client_objects.h"
#include "tests/com/heap_blocks.h"
#include "tests/com/own_apartment.h"
#include "tests/com/wire_call.h"

// Objects of every class that are created, called and released leave nothing behind: no block of memory (see
// heap_blocks.h), and no object, of which every DLL knows its own number.
namespace tallyra::tests::com {
namespace {

constexpr int rounds = 10'000;
constexpr int rounds_with_database = 200;
// Nothing that happens in every round, or in every hundredth.
constexpr long few = 20;
constexpr wchar_t long_text[] = L"a text that is long enough for a block of its own";

// What a client has, in the form of its variables: a method may put something else there.
struct Variables {
  IDispatch* names = collection();
  IDispatch* values = collection();
  BSTR text = SysAllocString(long_text);

  Variables() = default;
  Variables(const Variables&) = delete;
  Variables& operator=(const Variables&) = delete;
  ~Variables() {
    names->Release();
    values->Release();
    SysFreeString(text);
  }

  static IDispatch* collection() {
    return automation::com::ComObject::make(automation::make_object<automation::Collection>(), Role::caller)
        .detach();
  }
};

void add(IDispatch* collection, const char* text) {
  const Variant entry(Value(text), Role::caller);
  WireCall call{.id = 1, .arguments = {entry.raw()}};
  EXPECT_EQ(call.on(collection), S_OK);
}

void expect_done(IDispatch* object, DISPID method, const std::vector<VARIANTARG>& arguments) {
  WireCall call{.id = method, .arguments = arguments};
  EXPECT_EQ(call.on(object), S_OK);
  EXPECT_EQ(value_in(call.result.raw()), Value(100.0F)) << method << ": " << error_description_of(object);
}

// A row that its class inserts, changes and deletes. What Insert needs goes into the columns.
struct Record {
  const char* class_name;
  std::vector<const char*> keys;
  std::vector<std::pair<const char*, const char*>> columns;
  bool update_takes_tag = false;
};

const Record records[] = {
    {"CRevAddr", {"A1"}, {{"ADDRNO", "A1"}, {"ADDRNM", "a name"}}},
    {"CStkShipNote", {"T1"}, {{"TRANNO", "T1"}, {"TRANTYPE", "STK030SHIPN"}}},
    {"CTranHead", {"T1", "STK010POREV"}, {{"TRANNO", "T1"}, {"TRANTYPE", "STK010POREV"}}, true},
};

class Leak : public testing::Test {
 protected:
  // The rounds of a client, and that its objects and the collaborators have gone when its apartment has
  // ended.
  void expect_no_leak(int count, const std::function<void()>& round) const {
    in_own_apartment([&] { EXPECT_LT(leaked_by(count, round), few); });
    for (const ServerDll* dll : {&dll_, &ado_, &corvane_, &lexbank_}) EXPECT_EQ(dll->can_unload_now(), S_OK);
  }

  ServerDll dll_;
  ServerDll ado_{L"adodb.dll"};
  ServerDll corvane_{L"corvane.dll"};
  ServerDll lexbank_{L"lexbank.dll"};
  behaviour::CompanyDatabase company_;
};

TEST_F(Leak, OfObjectsThatAreCreatedCalledAndReleased) {
  for (const auto& [name, id] : served_class_ids()) {
    SCOPED_TRACE(name);
    const auto round = [this, class_id = id] {
      const auto object = new_client(dll_, class_id, company_);
      error_number_of(object.get());
      error_description_of(object.get());
      Variables variables;
      WireCall too_many{.id = 14,
                        .arguments = std::vector<VARIANTARG>(9, reference(VT_BSTR, &variables.text))};
      EXPECT_TRUE(FAILED(too_many.on(object.get())));
      WireCall mismatch{.id = 12, .arguments = {reference(VT_DISPATCH, &variables.names)}};
      EXPECT_TRUE(FAILED(mismatch.on(object.get())));
    };
    expect_no_leak(rounds, round);
  }
}

// Every object sets its collaborators up anew, opens a connection, is refused by the database or finds
// nothing.
TEST_F(Leak, OfObjectsThatWorkOnADatabase) {
  for (const auto& [name, id] : served_class_ids()) {
    SCOPED_TRACE(name);
    const auto round = [this, class_id = id] {
      const auto object = new_client(dll_, class_id, company_);
      Variables variables;
      const VARIANTARG text = reference(VT_BSTR, &variables.text);
      const VARIANTARG collections[] = {reference(VT_DISPATCH, &variables.names),
                                        reference(VT_DISPATCH, &variables.values)};
      // Read of every class: one to three keys, then the collections.
      for (std::size_t keys = 1; keys <= 3; ++keys) {
        std::vector<VARIANTARG> arguments(keys, text);
        arguments.insert(arguments.end(), std::begin(collections), std::end(collections));
        WireCall read{.id = 11, .arguments = arguments};
        read.on(object.get());
      }
    };
    expect_no_leak(rounds_with_database, round);
  }
}

// Every round finds no row and leaves none, or its Insert would be refused in the next one.
TEST_F(Leak, OfObjectsThatWriteToADatabase) {
  for (const auto& record : records) {
    SCOPED_TRACE(record.class_name);
    const auto round = [&] {
      const auto object = new_client(dll_, served_class_id(record.class_name), company_);
      Variables variables;
      for (const auto& [name, value] : record.columns) {
        add(variables.names, name);
        add(variables.values, value);
      }
      std::vector<Variant> keys;
      for (const char* key : record.keys) keys.emplace_back(Value(key), Role::caller);
      std::vector<VARIANTARG> arguments;
      for (auto& key : keys) arguments.push_back(reference(key.raw()));
      const std::vector<VARIANTARG> of_delete = arguments;
      arguments.push_back(reference(VT_DISPATCH, &variables.names));
      arguments.push_back(reference(VT_DISPATCH, &variables.values));
      const std::vector<VARIANTARG> of_insert = arguments;
      const Variant no_tag(Value(""), Role::caller);
      if (record.update_takes_tag) arguments.push_back(no_tag.raw());
      expect_done(object.get(), 13, of_insert);
      expect_done(object.get(), 12, arguments);
      expect_done(object.get(), 14, of_delete);
    };
    expect_no_leak(rounds_with_database, round);
  }
}

}  // namespace
}  // namespace tallyra::tests::com
