#include "company/movements.h"

#include <string>

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, HasDocumentsOfEveryTypeWithTheSignThatTheyNeed) {
  struct Row {
    const char* type;
    const char* signs;
  };
  const Row rows[] = {{"STK010POREV", "1"}, {"STK010PORTN", "-1"},  {"STK011PORTN", "-1"},
                      {"STK020MISS", "-1"}, {"STK020MISSSO", "-1"}, {"STK021RTN1", "1"},
                      {"STK021RTNSO", "1"}, {"STK022REVMO", "1"},   {"STK022REVSO", "1"},
                      {"STK024MRPL", "1"},  {"STK030SHIP", "-1"}};
  for (const auto& [type, signs] : rows) {
    EXPECT_EQ(value_of(database,
                       std::string("SELECT GROUP_CONCAT(DISTINCT SIGN(QTY)) FROM STKTRANDT D JOIN STKTRANHD "
                                   "H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='") +
                           type + "'"),
              signs)
        << type;
  }
  EXPECT_EQ(value_of(database, "SELECT COUNT(DISTINCT TRANTYPE) FROM STKTRANHD"), "11");
}

TEST_F(GeneratedCompany, NeverHasLessThanNothingInStock) {
  const std::string movements =
      "(SELECT DEPTNOFR AS DEPT,PARTNO,QTY,TRANDT FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO "
      "UNION ALL "
      "SELECT DEPTNOTO,PARTNO,QTY,TRANDT FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE "
      "TRANTYPE='STK024MRPL')";
  for (const char* until : {"2024-01-31", "2024-02-29", "2024-03-31"}) {
    EXPECT_EQ(value_of(database, "SELECT DEPT FROM " + movements + " WHERE TRANDT<='" + until +
                                     " 00:00:00' GROUP BY DEPT,PARTNO HAVING SUM(QTY)<0"),
              "no row")
        << until;
  }
}

}  // namespace
