#include "company/returnable.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace tallyra::company;

Returnable document(int number) {
  return {std::to_string(number), 0, "", "", {}};
}

TEST(Returnable, AQuarterIsAWholeNumberWithoutASign) {
  EXPECT_EQ(quarter_of(-9), 2);
  EXPECT_EQ(quarter_of(8), 2);
  EXPECT_EQ(quarter_of(-3.75), 0);
  EXPECT_EQ(quarter_of(0), 0);
}

TEST(Returnable, ADocumentIsTakenOnce) {
  Returnables documents;
  Random random(3);
  EXPECT_FALSE(documents.take(random));
  for (int number = 0; number < 10; ++number) documents.add(document(number));
  std::set<std::string> taken;
  while (const auto each = documents.take(random)) EXPECT_TRUE(taken.insert(each->reference).second);
  EXPECT_EQ(taken.size(), 10U);
}

TEST(Returnable, OlderDocumentsAreForgotten) {
  Returnables documents;
  Random random(3);
  for (int number = 0; number < 300; ++number) documents.add(document(number));
  std::set<int> left;
  while (const auto each = documents.take(random)) left.insert(std::stoi(each->reference));
  EXPECT_EQ(left.size(), 256U);
  EXPECT_EQ(*left.begin(), 44);
  EXPECT_EQ(*left.rbegin(), 299);
}

}  // namespace
