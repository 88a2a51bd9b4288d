#pragma once

#include <string>

#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {

// A close that somebody has tampered with, or is about to.
class TamperedClose : public ClosingClient {
 protected:
  TamperedClose() { EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all(); }
  ExitStatus verify() { return run({"verify", "2024/01/31", "--csv"}); }
  static std::string of_department(const std::string& number) {
    return "TRANNO=(SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE' AND DEPTNOFR='" + number + "')";
  }
};

}  // namespace tallyra::client
