#pragma once

#include <string>

#include "client/month_end/check.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {

// A company without any fault, for a test to put exactly one in: all its documents are approved, and it has a
// part in one line alone, which can be spoiled without another.
class CheckedCompany : public ClosingClient {
 protected:
  CheckedCompany() {
    sql({"UPDATE STKTRANHD SET STATUSSN=1",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE) VALUES('R1',9,'spare',1,1)",
         "INSERT INTO PARTS(PARTNO,PRICETYPESN,MTYPESN) VALUES('spare',1,1)"});
  }
  // The names of all that the check of a close finds, "name:count" each.
  std::string found(const char* date = "2024/01/31") const {
    const Reader reader(company_.connection_string(), "MSACCESS");
    std::string names;
    for (const auto& entry : check_close(reader, *automation::parse_date(date)).entries)
      names += (names.empty() ? "" : " ") + std::string(entry.finding->name) + ":" +
               std::to_string(entry.found.count);
    return names;
  }
};

}  // namespace tallyra::client
