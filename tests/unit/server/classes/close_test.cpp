#include <gtest/gtest.h>

#include "tests/unit/server/classes/described_class.h"

// What clients were compiled against: never to change.
namespace tallyra::server {
namespace {

TEST(CloseTables, StockClose) {
  EXPECT_EQ(methods_of("CStockClose"),
            "11 Read(pCloseDT text, &colFieldName collection, &colFieldValue collection): single\n"
            "12 Update(pCloseDT text, &colFieldName collection, &colFieldValue collection, &strOprTag text): "
            "single\n"
            "13 Insert(pCloseDT variant, &colFieldName collection, &colFieldValue collection): single\n"
            "14 Delete(pCloseDT variant): single\n"
            "15 STKMonthCloseDept(&cCloseID text, &cCloseDT text, &cDeptNo text): single\n"
            "16 STKMonthClose(&cCloseID text, &cCloseDT text): single\n");
}

TEST(CloseTables, CostingSettings) {
  EXPECT_EQ(
      methods_of("CPartCostSet"),
      "11 Read(&iMTypeSN int32, &colFieldName collection, &colFieldValue collection): single\n"
      "12 Update(iMTypeSN int32, &colFieldName collection, &colFieldValue collection, &strOprTag text = ''): "
      "single\n"
      "13 Insert(iMTypeSN int32, &colFieldName collection, &colFieldValue collection): single\n"
      "14 Delete(iMTypeSN int32): single\n");
}

}  // namespace
}  // namespace tallyra::server
