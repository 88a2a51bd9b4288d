#include "automation/apartment.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace tallyra::automation {
namespace {

class Kept : public KeptByApartment {
 public:
  explicit Kept(int& ends, std::function<void()> at_end = {}) : ends_(ends), at_end_(std::move(at_end)) {}
  ~Kept() override {
    ++ends_;
    if (at_end_) at_end_();
  }

 private:
  int& ends_;
  std::function<void()> at_end_;
};

void keep(int& ends, std::function<void()> at_end = {}) {
  keep_until_apartment_ends(std::make_unique<Kept>(ends, std::move(at_end)));
}

TEST(LocalApartment, WhatAThreadKeepsGoesWithTheThread) {
  int ends = 0;
  std::thread([&] {
    EXPECT_EQ(kept_by_apartment(), nullptr);
    keep(ends);
    EXPECT_NE(kept_by_apartment(), nullptr);
    EXPECT_EQ(ends, 0);
  }).join();
  EXPECT_EQ(ends, 1);
}

TEST(LocalApartment, AThreadSeesItsOwnOnly) {
  int ends = 0;
  std::thread([&] {
    keep(ends);
    std::thread([] { EXPECT_EQ(kept_by_apartment(), nullptr); }).join();
    EXPECT_EQ(ends, 0);
  }).join();
}

TEST(LocalApartment, WhatIsKeptWhileTheThreadEndsGoesToo) {
  int ends = 0;
  std::thread([&] { keep(ends, [&] { keep(ends); }); }).join();
  EXPECT_EQ(ends, 2);
}

}  // namespace
}  // namespace tallyra::automation
