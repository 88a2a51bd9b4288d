#pragma once

#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {

// A company in which a close has left a document with a line when it was ended.
class UnfinishedClose : public ClosingClient {
 protected:
  UnfinishedClose() {
    sql(
        {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
         "VALUES('027CLOSE00000009','STK027CLOSE','2024-02-01 00:00:00','10 ',0)",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('027CLOSE00000009',0,'frame',5)"});
  }
  const Reader reader_{company_.connection_string(), "MSACCESS"};
};

}  // namespace tallyra::client
