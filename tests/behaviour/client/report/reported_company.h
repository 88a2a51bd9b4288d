#pragma once

#include <string>

#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {

// The report of a company whose figures SQL of the test's own tells.
class Report : public ClosingClient {
 protected:
  Report() {
    sql({"UPDATE PARTS SET PARTNM='Bolt <long> & \"hard\"' WHERE PARTNO='bolt-1'",
         "INSERT INTO PARTS(PARTNO) VALUES('ghost')",
         "INSERT INTO PARTCOSTSET(MTYPESN,MTYPENM) VALUES(1,'Raw'),(2,'Made')",
         "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,STATUSSN) "
         "VALUES('CI1','STKCHECKISS','CK1','2024-02-15 00:00:00','10',1)",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('CI1',0,'bolt-1',-2),('CI1',0,'ghost',1)"});
    close_and_approve("2024/01/31");
    EXPECT_EQ(run({"close", "2024/02/29"}), exit_done) << client_.all();
  }
  std::string page(const std::string& language = "EN") {
    EXPECT_EQ(run({"report", "2024/02/29", "--output", "-", "--language", language}), exit_done)
        << client_.all();
    return client_.out();
  }
  // What stands in data-value behind the place where `after` is first found.
  static double number_after(const std::string& page, const std::string& after) {
    const std::string mark = "data-value=\"";
    const auto at = page.find(mark, page.find(after));
    return at == std::string::npos ? -1 : std::stod(page.substr(at + mark.size()));
  }
  double sum(const std::string& expression, const std::string& condition) const {
    return std::stod(
        company_.rows("SELECT SUM(" + expression +
                      ") FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO LEFT JOIN (SELECT "
                      "X.PARTNO, X.UPRICE FROM STKTRANDT X JOIN STKTRANHD Y ON X.TRANNO=Y.TRANNO WHERE "
                      "Y.TRANTYPE='STKCLOSEALL' AND Y.TRANDT='2024-03-01 00:00:00') C ON C.PARTNO=L.PARTNO "
                      "WHERE " +
                      condition));
  }
  static constexpr const char* documents = "H.TRANTYPE='STK027CLOSE' AND H.TRANDT='2024-03-01 00:00:00'";
};

}  // namespace tallyra::client
