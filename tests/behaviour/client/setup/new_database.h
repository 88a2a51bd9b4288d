#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/client_program.h"
#include "tests/support/company_database.h"
#include "tests/support/postgresql_server.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {

// An empty place for a database on the engine of the test. The company beside it registers all classes.
class NewDatabase : public testing::Test {
 protected:
  ExitStatus run(std::vector<std::string> words) {
    words.insert(words.end(), {"--db", db_});
    return client_.run(std::move(words));
  }
  ExitStatus enters_an_address(const char* user) {
    return run({"CRevAddr", "Insert", "A1", "ADDRNO=A1", "--user", user});
  }
  bool says(const std::string& text) const { return client_.all().find(text) != std::string::npos; }

  behaviour::CompanyDatabase registered_;
  tests::TestFolder folder_;
  std::string file_ = folder_.file("new.db");
  std::string db_ = registered_.is_sqlite() ? file_ : on_server();

 private:
  static std::string on_server() {
    auto& server = tests::PostgresqlServer::shared();
    return server.connection_string(server.new_database());
  }

 protected:
  ClientProgram client_;
};

}  // namespace tallyra::client
