#include <gtest/gtest.h>

#include <future>
#include <iostream>
#include <optional>
#include <thread>
#include <vector>

#include "automation/apartment.h"
#include "automation/com/com_proxy.h"
#include "automation/com/text.h"
#include "automation/convert.h"
#include "tests/com/client_objects.h"
#include "tests/com/heap_blocks.h"
#include "tests/com/wire_call.h"

// A host that loads and unloads a DLL over and over for as long as it runs: the DLL gives back everything
// that it takes of the process.
namespace tallyra::tests::com {
namespace {

using automation::Object;

constexpr int rounds = 2'000;
constexpr int rounds_of_a_stand_in = 500;
// The system fills tables of its own in the first rounds.
constexpr int first_rounds = 20;

// The index that the next module to ask for one gets.
DWORD next_tls_index() {
  const DWORD index = TlsAlloc();
  TlsFree(index);
  return index;
}

struct Taken {
  DWORD next_index = next_tls_index();
  long blocks = blocks_in_use();
};

std::ostream& operator<<(std::ostream& out, const Taken& taken) {
  return out << "next TLS index " << taken.next_index << ", " << taken.blocks << " blocks of memory";
}

void expect_nothing_taken_by(const std::string& what, int rounds_of_it,
                             const std::function<void(int number)>& round) {
  for (int i = 0; i < first_rounds; ++i) round(i);
  const Taken before;
  for (int i = 0; i < rounds_of_it; ++i) round(i);
  const Taken after;
  std::cout << what << ", before: " << before << "\n"
            << what << ", after " << rounds_of_it << " rounds: " << after << "\n";
  EXPECT_EQ(after.next_index, before.next_index);
  EXPECT_LT(after.blocks - before.blocks, few);
}

// A member of a class that takes nothing but texts.
struct Use {
  const char* class_name;
  DISPID member;
  std::vector<const char*> texts;
  bool reaches_database = true;
};

void call(IDispatch* object, const Use& use) {
  std::vector<Variant> texts;
  for (const char* text : use.texts) texts.emplace_back(Value(text), Role::caller);
  WireCall call{.id = use.member};
  for (const auto& text : texts) call.arguments.push_back(text.raw());
  EXPECT_EQ(call.on(object), S_OK);
}

const Use business_methods[] = {
    {"CCheckDetail", 14, {"A1", "P1"}},
    {"CCheckHead", 14, {"A1"}},
    {"CPartCostSet", 14, {"1"}},
    {"CRevAddr", 14, {"A1"}},
    {"CSTKController", 14, {"A1"}},
    {"CStkShipNote", 14, {"A1"}},
    {"CStkrptFuns", 15, {"Select 1"}, false},
    {"CStockClose", 14, {"2024/01/31"}},
    {"CTranDetail", 18, {"A1"}},
    {"CTranHead", 14, {"A1", "STK010POREV"}},
};

// Every class is created and called. A business method takes most of the time, so it is one class in turn
// that runs one: far enough to create the collaborators and the connection, whose database cannot be reached.
void use_every_class(int round) {
  const ServerDll dll;
  const automation::Apartment apartment;
  const Use& in_turn = business_methods[static_cast<std::size_t>(round) % std::size(business_methods)];
  for (const auto& [name, id] : served_class_ids()) {
    const auto object = dll.create<IDispatch>(id);
    put_session(object.get(), 6, "Driver={no driver}");
    EXPECT_EQ(error_number_of(object.get()), 0.0F);
    if (name != in_turn.class_name) continue;
    call(object.get(), in_turn);
    EXPECT_EQ(GetModuleHandleW(L"adodb.dll") != nullptr, in_turn.reaches_database) << name;
  }
}

TEST(LoadRounds, OfTheComponentWithEveryClass) {
  ASSERT_EQ(std::size(business_methods), served_class_ids().size());
  // On a thread of its own, whose apartment begins and ends in each round.
  std::thread([] {
    expect_nothing_taken_by("Tallyra.dll", rounds, [](int round) {
      use_every_class(round);
      ASSERT_EQ(GetModuleHandleW(L"Tallyra.dll"), nullptr);
    });
  }).join();
}

// A thread that has called the DLL and outlives it.
TEST(LoadRounds, WithAThreadThatGoesOn) {
  expect_nothing_taken_by("with a thread that goes on", rounds_of_a_stand_in, [](int) {
    std::promise<void> called;
    std::promise<void> unloaded;
    auto dll = std::make_optional<ServerDll>();
    std::thread thread([&] {
      error_number_of(dll->create<IDispatch>(served_class_id("CRevAddr")).get());
      called.set_value();
      unloaded.get_future().wait();
    });
    called.get_future().wait();
    dll.reset();
    EXPECT_EQ(GetModuleHandleW(L"Tallyra.dll"), nullptr);
    unloaded.set_value();
    thread.join();
  });
}

// What a stand-in's classes are asked for in a round.
struct StandIn {
  const wchar_t* dll;
  std::function<void(const std::function<Object(const wchar_t* prog_id)>& create)> use;
};

const StandIn stand_ins[] = {
    {L"lexbank.dll",
     [](const auto& create) {
       EXPECT_FALSE(automation::to_text(create(L"Lexbank.ErrMsg").get("Msg10000003")).empty());
       EXPECT_FALSE(automation::to_text(create(L"Lexbank.CPartF").get("NameCheck")).empty());
     }},
    {L"corvane.dll",
     [](const auto& create) {
       EXPECT_EQ(create(L"Corvane.CSystem").get("ErrNumber"), Value(0));
       const Object rights = create(L"Corvane.CPowerCheck");
       rights.put("ConnectionString", Value("Driver={no driver}"));
       EXPECT_THROW(rights.call("PowerCheck", "STK010POREV"), automation::Error);
     }},
    {L"adodb.dll",
     [](const auto& create) {
       const Object connection = create(L"ADODB.Connection");
       connection.call("Open", "Driver=SQLite3;Database=:memory:");
       connection.call("Execute", "Select 1");
       EXPECT_THROW(connection.call("Execute", "no statement"), automation::Error);
       connection.call("Close");
       EXPECT_EQ(create(L"ADODB.Recordset").get("State"), Value(0));
     }},
};

Object create_from(const ServerDll& dll, const wchar_t* prog_id) {
  CLSID id;
  EXPECT_EQ(CLSIDFromProgID(prog_id, &id), S_OK);
  return automation::make_object<automation::com::ComProxy>(dll.create<IDispatch>(id));
}

TEST(LoadRounds, OfEachStandIn) {
  for (const auto& [name, use] : stand_ins) {
    const std::string text = automation::com::to_utf8(name);
    SCOPED_TRACE(text);
    std::thread([&] {
      expect_nothing_taken_by(text, rounds_of_a_stand_in, [&](int) {
        {
          const ServerDll dll(name);
          const automation::Apartment apartment;
          use([&dll](const wchar_t* prog_id) { return create_from(dll, prog_id); });
        }
        ASSERT_EQ(GetModuleHandleW(name), nullptr);
      });
    }).join();
  }
}

}  // namespace
}  // namespace tallyra::tests::com
