#include "standins/ado/dialect/date_column_cache.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::DateColumnCache;

TEST(DateColumnCache, AsksAboutAColumnOnceInWhateverCaseItIsWritten) {
  StockColumns columns;
  DateColumnCache cache(columns);
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(cache.is_date("STKTRANHD", "TRANDT"));
    EXPECT_TRUE(cache.is_date("stktranhd", "TranDt"));
    EXPECT_FALSE(cache.is_date("STKTRANHD", "TRANNO"));
  }
  EXPECT_EQ(columns.asked, 2U);
}

TEST(DateColumnCache, KeepsTablesAndColumnsApart) {
  StockColumns columns;
  DateColumnCache cache(columns);
  EXPECT_TRUE(cache.is_date("STKTRANHD", "TRANDT"));
  EXPECT_FALSE(cache.is_date("STKTRANH", "DTRANDT"));
  EXPECT_FALSE(cache.is_date("STKTRANDT", "TRANDT"));
}

TEST(DateColumnCache, AsksAgainWhenItIsCleared) {
  StockColumns columns;
  DateColumnCache cache(columns);
  cache.is_date("PARTS", "EDITDT");
  cache.clear();
  EXPECT_TRUE(cache.is_date("PARTS", "EDITDT"));
  EXPECT_EQ(columns.asked, 2U);
}

TEST(DateColumnCache, DoesNotGrowForEverWithNamesThatAreMadeUp) {
  StockColumns columns;
  DateColumnCache cache(columns);
  cache.is_date("PARTS", "EDITDT");
  for (int i = 0; i < 4096; ++i) cache.is_date("T", std::to_string(i));
  const std::size_t before = columns.asked;
  EXPECT_TRUE(cache.is_date("PARTS", "EDITDT"));
  EXPECT_EQ(columns.asked, before + 1) << "forgotten with all others";
}

}  // namespace
}  // namespace tallyra::tests::dialect
