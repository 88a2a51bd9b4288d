#include "standins/ado/dialect/insert_heads.h"

#include <gtest/gtest.h>

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::InsertHeads;

std::string head_of_table(int number) {
  return "Insert Into T" + std::to_string(number) + "(A) Values(";
}

TEST(InsertHeads, AreFoundCharacterForCharacter) {
  InsertHeads heads;
  EXPECT_EQ(heads.match("Insert Into T(A) Values(1)"), nullptr);
  heads.remember("Insert Into T(A) Values(", {true});
  heads.remember("Insert Into U(A,B) Values(", {false, true});
  const auto* found = heads.match("Insert Into T(A) Values('2024/03/31')");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->dates, std::vector<bool>{true});
  ASSERT_NE(heads.match("Insert Into U(A,B) Values(1,2)"), nullptr);
  EXPECT_EQ(heads.match("Insert Into U(A,B) Values(1,2)")->dates, (std::vector<bool>{false, true}));
  EXPECT_EQ(heads.match("insert Into T(A) Values(1)"), nullptr);
  EXPECT_EQ(heads.match("Insert Into T(A) Values"), nullptr);
}

TEST(InsertHeads, TheOldestMakesRoom) {
  InsertHeads heads;
  for (int i = 0; i < 17; ++i) heads.remember(head_of_table(i), {});
  EXPECT_EQ(heads.match(head_of_table(0)), nullptr);
  for (int i = 1; i < 17; ++i) EXPECT_NE(heads.match(head_of_table(i)), nullptr) << i;
  heads.remember(head_of_table(17), {});
  EXPECT_EQ(heads.match(head_of_table(1)), nullptr);
  EXPECT_NE(heads.match(head_of_table(16)), nullptr);
}

TEST(InsertHeads, AnEndlessOneIsNotKept) {
  InsertHeads heads;
  const std::string head(5000, 'x');
  heads.remember(head, {});
  EXPECT_EQ(heads.match(head), nullptr);
}

TEST(InsertHeads, AreForgottenTogether) {
  InsertHeads heads;
  heads.remember(head_of_table(1), {});
  EXPECT_NE(heads.match(head_of_table(1)), nullptr);
  heads.clear();
  EXPECT_EQ(heads.match(head_of_table(1)), nullptr);
}

}  // namespace
}  // namespace tallyra::tests::dialect
