#include <gtest/gtest.h>

#include <thread>

#include "automation/apartment.h"
#include "automation/collection.h"
#include "frame/collaborators.h"
#include "tests/com/business_objects.h"

// How long the collaborators of a thread live.
namespace tallyra::tests::com {
namespace {

class WatchedCollection : public automation::Collection {
 public:
  explicit WatchedCollection(int& alive) : alive_(alive) { ++alive_; }
  ~WatchedCollection() override { --alive_; }

 private:
  int& alive_;
};

TEST(ThreadUse, TheCollaboratorsGoWithTheLastObjectOfTheThread) {
  int alive = 0;
  auto first = new_detail();
  auto second = new_head();
  frame::collaborators().messages = automation::make_object<WatchedCollection>(alive);
  first = {};
  EXPECT_EQ(alive, 1);
  second = {};
  EXPECT_EQ(alive, 0);
  EXPECT_FALSE(frame::collaborators().messages);
}

TEST(ThreadUse, EveryThreadHasItsOwnCollaborators) {
  int alive = 0;
  const auto here = new_detail();
  frame::collaborators().messages = automation::make_object<WatchedCollection>(alive);
  std::thread([&alive] {
    const automation::Apartment apartment;
    int alive_there = 0;
    auto there = new_detail();
    EXPECT_FALSE(frame::collaborators().messages);
    frame::collaborators().messages = automation::make_object<WatchedCollection>(alive_there);
    there = {};
    EXPECT_EQ(alive_there, 0);
    EXPECT_EQ(alive, 1);
  }).join();
  EXPECT_EQ(alive, 1);
  frame::collaborators() = {};
}

TEST(ThreadUse, AThreadThatEndsWithObjectsLeftCallsNobody) {
  int alive = 0;
  Pointer<_CTranDetail> left_over;
  std::thread([&] {
    const automation::Apartment apartment;
    left_over = new_detail();
    frame::collaborators().messages = automation::make_object<WatchedCollection>(alive);
  }).join();
  EXPECT_EQ(alive, 1) << "left behind rather than called at the end of the thread";
  left_over = {};
  EXPECT_EQ(alive, 1);
}

}  // namespace
}  // namespace tallyra::tests::com
