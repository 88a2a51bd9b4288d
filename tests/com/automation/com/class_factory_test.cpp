#include "automation/com/class_factory.h"

#include <gtest/gtest.h>

#include <iostream>
#include <thread>
#include <vector>

#include "tallyra.h"
#include "tests/com/server_dll.h"

// The class objects of the DLL.
namespace tallyra::tests::com {
namespace {

class ClassObject : public testing::Test {
 protected:
  ServerDll dll_;
};

TEST_F(ClassObject, UnlockingMoreOftenThanLockingChangesNothing) {
  Pointer<IClassFactory> factory;
  ASSERT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, factory.out_void()), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "the class object is held";
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "the class object is held";
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  factory = {};
  EXPECT_EQ(dll_.can_unload_now(), S_FALSE) << "it is locked";
  ASSERT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, factory.out_void()), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

TEST_F(ClassObject, LocksOfManyThreadsCountOneByOne) {
  constexpr int threads = 8;
  constexpr int locks = 10'000;
  Pointer<IClassFactory> factory;
  ASSERT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, factory.out_void()), S_OK);
  std::vector<std::thread> all;
  for (int i = 0; i < threads; ++i)
    all.emplace_back([&factory] {
      // Half of the unlocking is once too often, whenever it comes.
      for (int round = 0; round < locks; ++round)
        for (const BOOL lock : {TRUE, FALSE, FALSE}) factory->LockServer(lock);
    });
  for (auto& each : all) each.join();
  std::cout << threads << " threads, " << threads * locks << " locks\n";
  factory = {};
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

TEST_F(ClassObject, RefusesWhatItDoesNotKnow) {
  void* out = this;
  EXPECT_EQ(dll_.get_class_object(IID_IUnknown, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IDispatch, &out), E_NOINTERFACE);
  EXPECT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, nullptr), E_POINTER);
  Pointer<IClassFactory> factory;
  ASSERT_EQ(dll_.get_class_object(CLSID_CStockClose, IID_IClassFactory, factory.out_void()), S_OK);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  factory = {};
  EXPECT_EQ(dll_.can_unload_now(), S_OK);
}

}  // namespace
}  // namespace tallyra::tests::com
