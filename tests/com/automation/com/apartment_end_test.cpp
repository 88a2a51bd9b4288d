#include <gtest/gtest.h>
#include <objbase.h>
#include <objidl.h>

#include <functional>

#include "automation/collection.h"
#include "automation/com/module.h"
#include "frame/collaborators.h"
#include "tests/com/business_objects.h"
#include "tests/com/own_apartment.h"

// How long the collaborators of a thread live.
namespace tallyra::tests::com {
namespace {

using automation::com::module_uses;

// What runs in a collaborator when it is let go.
class Watched : public automation::Collection {
 public:
  explicit Watched(int& alive, std::function<void()> at_end = {})
      : alive_(alive), at_end_(std::move(at_end)) {
    ++alive_;
  }
  ~Watched() override {
    --alive_;
    if (at_end_) at_end_();
  }

 private:
  int& alive_;
  std::function<void()> at_end_;
};

void set_up(int& alive, std::function<void()> at_end = {}) {
  frame::collaborators().messages = automation::make_object<Watched>(alive, std::move(at_end));
}

// A thread that does nothing about its apartment by itself.
void on_thread(const std::function<void()>& body) {
  std::thread(body).join();
}

class CollaboratorsOfThread : public testing::Test {
 protected:
  const long uses_before_ = module_uses();
  int alive_ = 0;
};

TEST_F(CollaboratorsOfThread, OutliveItsObjectsAndGoWithItsApartment) {
  in_own_apartment([&] {
    auto first = new_detail();
    auto second = new_head();
    set_up(alive_);
    first = {};
    second = {};
    EXPECT_EQ(alive_, 1);
    EXPECT_TRUE(frame::collaborators().messages);
    EXPECT_GT(module_uses(), uses_before_) << "the module must stay";
  });
  EXPECT_EQ(alive_, 0);
  EXPECT_EQ(module_uses(), uses_before_);
}

TEST_F(CollaboratorsOfThread, OutliveTheEndOfANestedApartment) {
  in_own_apartment([&] {
    {
      const automation::Apartment nested;
      set_up(alive_);
    }
    EXPECT_EQ(alive_, 1);
    { const automation::Apartment nested; }
    EXPECT_EQ(alive_, 1);
  });
  EXPECT_EQ(alive_, 0);
}

TEST_F(CollaboratorsOfThread, AreNewInTheNextApartmentOfTheThread) {
  on_thread([&] {
    for (int round = 0; round < 3; ++round) {
      const automation::Apartment apartment;
      EXPECT_FALSE(frame::collaborators().messages);
      set_up(alive_);
      EXPECT_EQ(alive_, 1);
    }
    EXPECT_EQ(alive_, 0);
    EXPECT_EQ(module_uses(), uses_before_);
    CoUninitialize();  // once too often, which ends nothing
  });
}

TEST_F(CollaboratorsOfThread, GoWithAnApartmentOfAllThreadsToo) {
  on_thread([&] {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    set_up(alive_);
    CoUninitialize();
    EXPECT_EQ(alive_, 0);
  });
}

TEST_F(CollaboratorsOfThread, AreItsOwn) {
  in_own_apartment([&] {
    set_up(alive_);
    int alive_there = 0;
    in_own_apartment([&] {
      EXPECT_FALSE(frame::collaborators().messages);
      set_up(alive_there);
    });
    EXPECT_EQ(alive_there, 0);
    EXPECT_EQ(alive_, 1);
  });
  EXPECT_EQ(alive_, 0);
}

TEST_F(CollaboratorsOfThread, GoOnceThoughOneOfThemEndsTheApartmentAgain) {
  on_thread([&] {
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    set_up(alive_, [] { CoUninitialize(); });
    CoUninitialize();
    EXPECT_EQ(alive_, 0);
    EXPECT_EQ(module_uses(), uses_before_);
    const automation::Apartment next;
    set_up(alive_);
    EXPECT_EQ(alive_, 1);
  });
  EXPECT_EQ(alive_, 0);
  EXPECT_EQ(module_uses(), uses_before_);
}

TEST_F(CollaboratorsOfThread, DoNotKeepAnApartmentFromEndingThatAlwaysSetThemUpAnew) {
  on_thread([&] {
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    std::function<void()> again;
    again = [&] { set_up(alive_, again); };
    set_up(alive_, again);
    CoUninitialize();
    EXPECT_EQ(alive_, 1) << "the last is left behind";
    EXPECT_EQ(module_uses(), uses_before_);
  });
}

TEST_F(CollaboratorsOfThread, DoNotWaitForAnObjectThatIsReleasedElsewhere) {
  Pointer<_CTranDetail> left_over;
  in_own_apartment([&] {
    left_over = new_detail();
    set_up(alive_);
  });
  EXPECT_EQ(alive_, 0);
  left_over = {};
  EXPECT_EQ(module_uses(), uses_before_);
}

// The end of a thread comes after its apartment, under the loader's lock.
TEST_F(CollaboratorsOfThread, AreLeftBehindUncalledWhenItEndsInItsApartment) {
  on_thread([&] {
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    set_up(alive_);
    EXPECT_GT(module_uses(), uses_before_);
  });
  EXPECT_EQ(alive_, 1);
  EXPECT_EQ(module_uses(), uses_before_) << "the module need not stay";
}

TEST_F(CollaboratorsOfThread, AreLeftBehindUncalledWhenItNeverHadAnApartment) {
  on_thread([&] { set_up(alive_); });
  EXPECT_EQ(alive_, 1);
  EXPECT_EQ(module_uses(), uses_before_);
}

// A thread without an apartment of its own may use that of others; what it calls may have one for a while.
TEST_F(CollaboratorsOfThread, OutliveApartmentsThatItsCalleesHaveForAWhile) {
  on_thread([&] {
    set_up(alive_);
    { const automation::Apartment of_callee; }
    EXPECT_EQ(alive_, 1);
    const automation::Apartment apartment;
    EXPECT_TRUE(frame::collaborators().messages) << "from here on they go with it";
  });
  EXPECT_EQ(alive_, 0);
}

TEST_F(CollaboratorsOfThread, AreLetGoAgainWhenLettingThemGoSetsThemUp) {
  int again = 0;
  in_own_apartment([&] { set_up(alive_, [&again] { set_up(again); }); });
  EXPECT_EQ(alive_, 0);
  EXPECT_EQ(again, 0);
  EXPECT_EQ(module_uses(), uses_before_);
}

// Sets the collaborators up when the apartment is about to end and all that is to be let go has gone.
class LateClient : public IInitializeSpy {
 public:
  explicit LateClient(int& alive) : alive_(alive) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == __uuidof(IInitializeSpy) ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP PreInitialize(DWORD, DWORD) override { return S_OK; }
  STDMETHODIMP PostInitialize(HRESULT result, DWORD, DWORD) override { return result; }
  STDMETHODIMP PreUninitialize(DWORD count) override {
    if (count == 1) set_up(alive_);
    return S_OK;
  }
  STDMETHODIMP PostUninitialize(DWORD) override { return S_OK; }

 private:
  int& alive_;
};

// Those of an apartment that is gone must not be called any more.
TEST_F(CollaboratorsOfThread, AreLeftBehindWhenSetUpWhileTheApartmentEnds) {
  int late = 0;
  on_thread([&] {
    LateClient client(late);
    ULARGE_INTEGER cookie{};
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    // The one that is registered first is called last.
    ASSERT_EQ(CoRegisterInitializeSpy(&client, &cookie), S_OK);
    set_up(alive_);
    CoUninitialize();
    EXPECT_EQ(alive_, 0);
    EXPECT_EQ(late, 1);
    EXPECT_EQ(CoRevokeInitializeSpy(cookie), S_OK);
    const automation::Apartment next;
    EXPECT_FALSE(frame::collaborators().messages);
    set_up(alive_);
  });
  EXPECT_EQ(alive_, 0);
  EXPECT_EQ(late, 1);
  EXPECT_EQ(module_uses(), uses_before_);
}

}  // namespace
}  // namespace tallyra::tests::com
