#include <gtest/gtest.h>

#include <atomic>
#include <iostream>
#include <thread>
#include <vector>

#include "automation/apartment.h"
#include "tallyra.h"
#include "tests/com/heap_blocks.h"
#include "tests/com/server_dll.h"

// The type library that all objects of the DLL describe themselves from.
namespace tallyra::tests::com {
namespace {

constexpr int threads = 8;
constexpr int rounds_of_a_thread = 500;

class SharedTypeLibrary : public testing::Test {
 protected:
  // Lets go of the description at once.
  static bool describes_itself(IDispatch* object) {
    Pointer<ITypeInfo> interface_info;
    Pointer<ITypeInfo> class_info;
    const auto provider = automation::com::query<IProvideClassInfo>(object);
    return object->GetTypeInfo(0, LOCALE_NEUTRAL, interface_info.out()) == S_OK && provider &&
           provider->GetClassInfo(class_info.out()) == S_OK;
  }

  ServerDll dll_;
};

TEST_F(SharedTypeLibrary, StaysUntilTheLastObjectGoes) {
  EXPECT_TRUE(describes_itself(dll_.create<IDispatch>(CLSID_CRevAddr).get())) << "fills the system's tables";
  const long before = blocks_in_use();
  auto kept = dll_.create<IDispatch>(CLSID_CTranHead);
  EXPECT_TRUE(describes_itself(dll_.create<IDispatch>(CLSID_CRevAddr).get()));
  const long while_in_use = blocks_in_use();
  EXPECT_GT(while_in_use - before, 100) << "let go with the object that has loaded it";
  EXPECT_TRUE(describes_itself(kept.get()));
  EXPECT_LT(blocks_in_use() - while_in_use, few) << "loaded again for each object";
  kept = {};
  EXPECT_LT(blocks_in_use() - before, few);
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

TEST_F(SharedTypeLibrary, StaysUntilTheLastClassObjectGoes) {
  EXPECT_TRUE(describes_itself(dll_.create<IDispatch>(CLSID_CRevAddr).get())) << "fills the system's tables";
  const long before = blocks_in_use();
  Pointer<IClassFactory> factory;
  ASSERT_EQ(dll_.get_class_object(CLSID_CRevAddr, IID_IClassFactory, factory.out_void()), S_OK);
  EXPECT_TRUE(describes_itself(dll_.create<IDispatch>(CLSID_CRevAddr).get()));
  EXPECT_GT(blocks_in_use() - before, 100);
  factory = {};
  EXPECT_LT(blocks_in_use() - before, few);
}

// Every round of a thread can be the one that loads it, or the one that lets it go.
TEST_F(SharedTypeLibrary, IsAskedForByManyThreadsAtOnce) {
  std::atomic<int> described = 0;
  std::vector<std::thread> all;
  for (int i = 0; i < threads; ++i)
    all.emplace_back([&] {
      const automation::Apartment apartment;
      for (int round = 0; round < rounds_of_a_thread; ++round)
        if (describes_itself(dll_.create<IDispatch>(CLSID_CStockClose).get())) ++described;
    });
  for (auto& each : all) each.join();
  std::cout << threads << " threads, " << described << " descriptions\n";
  EXPECT_EQ(described, threads * rounds_of_a_thread);
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

}  // namespace
}  // namespace tallyra::tests::com
