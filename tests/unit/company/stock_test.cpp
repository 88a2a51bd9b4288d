#include "company/stock.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using tallyra::company::Random;
using tallyra::company::Stock;

TEST(Stock, IsKeptByDepartmentAndPart) {
  Stock stock(2, 3);
  stock.add(0, 2, 5, false);
  stock.add(1, 0, 1.25, true);
  stock.add(0, 2, -1.75, false);
  EXPECT_EQ(stock.of(0, 2), 3.25);
  EXPECT_EQ(stock.of(1, 0), 1.25);
  EXPECT_EQ(stock.of(1, 2), 0);
}

TEST(Stock, ThePartsOfAShelfAreThoseThatLieThere) {
  Stock stock(2, 4);
  Random random(7);
  EXPECT_EQ(stock.any_part(0, false, random), -1);
  stock.add(0, 1, 5, false);
  stock.add(0, 3, 5, false);
  stock.add(0, 2, 5, true);
  stock.add(1, 0, 5, false);
  std::set<int> found;
  for (int round = 0; round < 100; ++round) found.insert(stock.any_part(0, false, random));
  EXPECT_EQ(found, (std::set<int>{1, 3}));
  EXPECT_EQ(stock.any_part(0, true, random), 2);
}

TEST(Stock, APartThatRanOutIsNotOfferedUntilItComesBack) {
  Stock stock(1, 2);
  Random random(7);
  stock.add(0, 1, 5, false);
  stock.add(0, 1, -5, false);
  EXPECT_EQ(stock.any_part(0, false, random), -1);
  stock.add(0, 1, 2, false);
  EXPECT_EQ(stock.any_part(0, false, random), 1);
}

}  // namespace
