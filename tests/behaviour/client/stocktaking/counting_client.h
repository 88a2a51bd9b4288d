#pragma once

#include <fstream>

#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {

// The client on a company whose department 10 is counted at the end of January. Its book: bolt-1 9, Bolt1 8,
// BOLT-1 2, 螺丝 7.
class CountingClient : public ClosingClient {
 protected:
  std::string file(const std::string& text) const {
    const std::string path = folder_.file("sheet.csv");
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  ExitStatus import(const std::string& sheet, std::vector<std::string> options = {}) {
    std::vector<std::string> words{"count", "import", file(sheet)};
    words.insert(words.end(), options.begin(), options.end());
    return run(words);
  }
  // bolt-1 and Bolt1 differ from the book, BOLT-1 does not.
  void enter() {
    ASSERT_EQ(import("part,counted\nbolt-1,10\nBolt1,3\nBOLT-1,2\n", on_department_10), exit_done)
        << client_.all();
  }
  // What an approval of that posts.
  static constexpr const char* differences = "Bolt1|-5\nbolt-1|1\n";
  std::string stored() const {
    return company_.rows("SELECT CHECKNO,CHECKDT,DEPTNO,STATUSSN FROM STKCHECKHD") +
           company_.rows("SELECT CHECKNO,PARTNO,QTY,UPRICE FROM STKCHECKDT ORDER BY PARTNO");
  }
  std::string posted() const {
    return company_.rows(
        "SELECT L.PARTNO,L.QTY FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO "
        "WHERE H.TRANTYPE='STKCHECKISS' ORDER BY H.TRANNO,L.PARTNO");
  }

  const std::vector<std::string> on_department_10{"--number", "C1",     "--department",
                                                  "10",       "--date", "2024/01/31"};
  tests::TestFolder folder_;
};

}  // namespace tallyra::client
