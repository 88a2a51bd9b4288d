#include <gtest/gtest.h>

#include "tests/unit/server/classes/described_class.h"

// What clients were compiled against: never to change.
namespace tallyra::server {
namespace {

TEST(StocktakingTables, HeadersLinesAndReports) {
  EXPECT_EQ(methods_of("CCheckHead"),
            "11 Read(&cCHECKNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "12 Update(cCHECKNO text, &colFieldName collection, &colFieldValue collection, &strOprTag text): "
            "single\n"
            "13 Insert(cCHECKNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "14 Delete(cCHECKNO text): single\n"
            "15 ValidCloseDT(vTranDT variant): variant\n");
  EXPECT_EQ(
      methods_of("CCheckDetail"),
      "11 Read(&cCHECKNO text, &cPartNo text, &colFieldName collection, &colFieldValue collection): single\n"
      "12 Update(&cCHECKNO text, &cPartNo text, &colFieldName collection, &colFieldValue collection): "
      "single\n"
      "13 Insert(&cCHECKNO text, &cPartNo text, &colFieldName collection, &colFieldValue collection): "
      "single\n"
      "14 Delete(&cCHECKNO text, &cPartNo text): single\n");
  EXPECT_EQ(methods_of("CStkrptFuns"), "15 GetCheckBalance(cSQL text): object\n");
}

}  // namespace
}  // namespace tallyra::server
