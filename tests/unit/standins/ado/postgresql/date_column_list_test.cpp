#include "standins/ado/postgresql/date_column_list.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/unit/standins/ado/postgresql/made_result.h"

namespace tallyra::standins::ado {
namespace {

// A list over a server with one date column in each of two tables.
class DateColumnListTest : public testing::Test {
 protected:
  int reads_ = 0;
  bool failing_ = false;
  DateColumnList list_{[this](const std::string&) {
    ++reads_;
    if (failing_) throw std::runtime_error("no answer");
    return made_result({{"relname"}, {"attname"}}, {{"stktranhd", "trandt"}, {"STKCLOSEHD", "CLOSEDT"}});
  }};
};

TEST_F(DateColumnListTest, KnowsColumnsWhateverTheCaseOfTheirNames) {
  EXPECT_TRUE(list_.is_date("STKTRANHD", "TranDT"));
  EXPECT_TRUE(list_.is_date("stkclosehd", "closedt"));
  EXPECT_FALSE(list_.is_date("STKTRANHD", "CLOSEDT"));
  EXPECT_FALSE(list_.is_date("STKTRANHD", "TRANNO"));
  EXPECT_FALSE(list_.is_date("", "TRANDT"));
}

TEST_F(DateColumnListTest, IsReadOnceUntilItIsForgotten) {
  list_.is_date("A", "B");
  list_.is_date("STKTRANHD", "TRANDT");
  list_.know();
  EXPECT_EQ(reads_, 1);
  list_.forget();
  EXPECT_TRUE(list_.is_date("STKTRANHD", "TRANDT"));
  EXPECT_EQ(reads_, 2);
}

TEST_F(DateColumnListTest, ThatCouldNotBeReadIsReadAgain) {
  failing_ = true;
  EXPECT_THROW(list_.is_date("STKTRANHD", "TRANDT"), std::runtime_error);
  failing_ = false;
  EXPECT_TRUE(list_.is_date("STKTRANHD", "TRANDT"));
}

}  // namespace
}  // namespace tallyra::standins::ado
