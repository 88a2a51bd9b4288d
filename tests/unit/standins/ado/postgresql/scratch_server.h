#pragma once

#include "tests/support/postgresql_server.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {

// A database of its own for each test, on the program's server.
class ScratchServer : public testing::Test {
 protected:
  explicit ScratchServer(const std::vector<std::string>& statements = {});

  std::string connection_string(std::string_view more = {}) const;
  Object open_connection(std::string_view more = {}) const;
  tests::PostgresqlServer& server() const { return server_; }
  const std::string& database() const { return database_; }

 private:
  tests::PostgresqlServer& server_ = tests::PostgresqlServer::shared();
  std::string database_;
};

}  // namespace tallyra::standins::ado::test
