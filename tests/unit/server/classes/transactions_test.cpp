#include <gtest/gtest.h>

#include "tests/unit/server/classes/described_class.h"

// What clients were compiled against: never to change.
namespace tallyra::server {
namespace {

TEST(TransactionTables, TransactionHead) {
  EXPECT_EQ(
      methods_of("CTranHead"),
      "11 Read(&cTRANNO text, &cTranType text, &colFieldName collection, &colFieldValue collection): single\n"
      "12 Update(cTRANNO text, &cTranType text, &colFieldName collection, &colFieldValue collection, "
      "&strOprTag "
      "text): single\n"
      "13 Insert(cTRANNO text, &cTranType text, &colFieldName collection, &colFieldValue collection, "
      "&pCopyID "
      "text = ''): single\n"
      "14 Delete(cTRANNO text, &cTranType text): single\n"
      "15 ValidCloseDT(vTranDT variant): variant\n");
}

TEST(TransactionTables, TransactionDetail) {
  EXPECT_EQ(
      methods_of("CTranDetail"),
      "11 Read(&cTRANNO text, &cReference text, &cPartNo text, &colFieldName collection, &colFieldValue "
      "collection, "
      "&intSN int32 = -1): single\n"
      "12 Update(&cTRANNO text, &cTranType text, &cReference text, &cPartNo text, &colFieldName collection, "
      "&colFieldValue collection, &intSN int32 = -1): single\n"
      "13 Insert(&cTRANNO text, &cTranType text, &cReference text, &cPartNo text, &colFieldName collection, "
      "&colFieldValue collection, &intSN int32 = -1): single\n"
      "14 Delete(&cTRANNO text, &cTranType text, &cReference text, &cPartNo text, &intSN int32 = -1): "
      "single\n"
      "15 InsertRTN(cTRANNO text, &intSN int16, &colFieldName collection, &colFieldValue collection, "
      "&iRTNType int16 "
      "= 0): single\n"
      "16 UpdateRTN(cTRANNO text, &intSN int16, &colFieldName collection, &colFieldValue collection): "
      "single\n"
      "17 PORefQty(&cReference text, &intSN int32, &nPOQty double, &nRevQty double, &nRtnQty double, &cType "
      "text = "
      "''): double\n"
      "18 POExam(cOrderNO text): int16\n"
      "19 OrderTypeExam(cOrderNO text): text\n"
      "20 IssuedOrRtnQty(cTRANNO text, &cMONO text, &cPartNo text, &cTranType text, &cType text = ''): "
      "double\n"
      "21 GetMRPQty(cMONO text, &cPartNo text, &cTranType text = ''): double\n");
}

}  // namespace
}  // namespace tallyra::server
