#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <iostream>
#include <optional>
#include <thread>
#include <vector>

#include "automation/com/text.h"
#include "tallyra.h"
#include "tests/com/heap_blocks.h"
#include "tests/com/own_apartment.h"
#include "tests/com/server_dll.h"

// What keeps the DLL loaded once its objects have gone: the collaborators of the threads that have used it.
namespace tallyra::tests::com {
namespace {

constexpr int loads = 100;
constexpr int threads = 8;
constexpr int rounds_of_a_thread = 25;

void expect_loaded(const wchar_t* dll, bool loaded) {
  EXPECT_EQ(GetModuleHandleW(dll) != nullptr, loaded) << automation::com::to_utf8(dll);
}

void expect_nothing_loaded() {
  for (const auto* dll : {L"Tallyra.dll", L"adodb.dll", L"corvane.dll", L"lexbank.dll"})
    expect_loaded(dll, false);
}

// A business method on a database that cannot be reached: far enough to create the collaborators and the
// connection.
void fail_to_read(_CRevAddr& address) {
  BSTR text = SysAllocString(L"Driver={no driver}");
  EXPECT_EQ(address.put_ConnectionString(text), S_OK);
  IDispatch* names = nullptr;
  IDispatch* values = nullptr;
  float result = 1;
  EXPECT_EQ(address.Read(&text, &names, &values, &result), S_OK);
  EXPECT_EQ(result, 0.0F);
  SysFreeString(text);
}

void use(const ServerDll& dll) {
  fail_to_read(*dll.create<_CRevAddr>(CLSID_CRevAddr).get());
}

TEST(Unloading, TheDllComesAndGoesWithoutALeak) {
  const auto round = [] {
    {
      const ServerDll dll;
      const auto object = dll.create<_CTranHead>(CLSID_CTranHead);
      BSTR text = SysAllocString(L"x");
      EXPECT_EQ(object->put_Language(text), S_OK);
      SysFreeString(text);
    }
    expect_nothing_loaded();
  };
  EXPECT_LT(leaked_by(loads, round), few);
}

TEST(Unloading, ThreadsThatUseTheDllLeaveNothingOfItBehind) {
  const auto round = [] {
    {
      const ServerDll dll;
      in_own_apartment([&dll] {
        for (int i = 0; i < 10; ++i) use(dll);
        EXPECT_EQ(dll.can_unload_now(), S_FALSE) << "the thread has its collaborators";
      });
      EXPECT_EQ(dll.can_unload_now(), S_OK);
    }
    expect_nothing_loaded();
  };
  EXPECT_LT(leaked_by(loads, round), few);
}

TEST(Unloading, WaitsForEveryThreadThatHasItsCollaborators) {
  const ServerDll dll;
  std::promise<void> used;
  std::promise<void> asked;
  std::thread other([&] {
    in_own_apartment([&] {
      use(dll);
      used.set_value();
      asked.get_future().wait();
    });
  });
  used.get_future().wait();
  in_own_apartment([&dll] { use(dll); });
  EXPECT_EQ(dll.can_unload_now(), S_FALSE);
  asked.set_value();
  other.join();
  EXPECT_EQ(dll.can_unload_now(), S_OK);
}

TEST(Unloading, IsDoneByTheSystemOnceTheApartmentHasEnded) {
  in_own_apartment([] {
    Pointer<_CRevAddr> address;
    ASSERT_EQ(
        CoCreateInstance(CLSID_CRevAddr, nullptr, CLSCTX_INPROC_SERVER, IID__CRevAddr, address.out_void()),
        S_OK);
    fail_to_read(*address.get());
    address = {};
    CoFreeUnusedLibrariesEx(0, 0);
    expect_loaded(L"Tallyra.dll", true);
    expect_loaded(L"corvane.dll", true);
  });
  expect_nothing_loaded();
}

TEST(Unloading, DoesNotWaitForAnObjectsThreadWhenTheObjectIsReleasedElsewhere) {
  const ServerDll dll;
  Pointer<_CRevAddr> address;
  in_own_apartment([&] {
    address = dll.create<_CRevAddr>(CLSID_CRevAddr);
    fail_to_read(*address.get());
  });
  EXPECT_EQ(dll.can_unload_now(), S_FALSE) << "the object is held";
  address = {};
  EXPECT_EQ(dll.can_unload_now(), S_OK);
}

// As a host does that loads the DLL by its path: nothing that it knows of is left.
TEST(Unloading, WithoutAskingTakesEffectWhenTheApartmentEnds) {
  for (int round = 0; round < 3; ++round) {
    in_own_apartment([] {
      for (int load = 0; load < 3; ++load) use(ServerDll());
      expect_loaded(L"Tallyra.dll", true);
    });
    expect_nothing_loaded();
  }
}

TEST(Unloading, IsAllowedAfterManyThreadsHaveComeAndGone) {
  const ServerDll dll;
  std::atomic<int> calls = 0;
  std::vector<std::thread> all;
  for (int i = 0; i < threads; ++i)
    all.emplace_back([&] {
      for (int round = 0; round < rounds_of_a_thread; ++round) {
        const automation::Apartment apartment;
        use(dll);
        ++calls;
      }
    });
  for (auto& each : all) each.join();
  std::cout << threads << " threads, " << calls << " apartments with a call in each\n";
  EXPECT_EQ(dll.can_unload_now(), S_OK);
}

// The end of a thread comes when nothing of a DLL may be called any more. The last test here: what the thread
// has left behind keeps the stand-ins loaded.
TEST(Unloading, DoesNotWaitForAThreadThatHasEndedInItsApartment) {
  {
    const ServerDll dll;
    std::thread([&dll] {
      ASSERT_EQ(CoInitialize(nullptr), S_OK);
      use(dll);
    }).join();
    EXPECT_EQ(dll.can_unload_now(), S_OK);
  }
  expect_loaded(L"Tallyra.dll", false);
}

}  // namespace
}  // namespace tallyra::tests::com
