#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "tests/com/client_objects.h"
#include "tests/com/heap_blocks.h"
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

// Whether nothing of the DLL is in use any more.
bool is_idle(const wchar_t* dll) {
  const HMODULE module = GetModuleHandleW(dll);
  if (!module) return false;
  const auto can_unload = reinterpret_cast<HRESULT(WINAPI*)()>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
  return can_unload() == S_OK;
}

class Leak : public testing::Test {
 protected:
  ServerDll dll_;
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
    EXPECT_LT(leaked_by(rounds, round), few);
    EXPECT_EQ(dll_.can_unload_now(), S_OK);
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
    EXPECT_LT(leaked_by(rounds_with_database, round), few);
    EXPECT_EQ(dll_.can_unload_now(), S_OK);
  }
  for (const wchar_t* dll : {L"adodb.dll", L"corvane.dll", L"lexbank.dll"}) EXPECT_TRUE(is_idle(dll)) << dll;
}

}  // namespace
}  // namespace tallyra::tests::com
