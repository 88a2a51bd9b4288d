#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_on_a_server.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {

// What is looked at and counted on a database server is what it is on SQLite.
class LookingOnAServer : public ClosingOnAServer {
 protected:
  void on_both(std::vector<std::string> words) {
    words.emplace_back("--yes");
    ASSERT_EQ(client_.run(words), exit_done) << client_.all();
    ASSERT_EQ(server_.run(words), exit_done) << server_.all();
  }
  // The same statement on both.
  void change(const std::string& statement) {
    company_.run({statement});
    Reader(connection_, "MSSQLSERVER").execute(statement);
  }
  std::string file(const std::string& text) const {
    const std::string path = folder_.file("sheet.csv");
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  tests::TestFolder folder_;
};

}  // namespace tallyra::client
