#pragma once

#include "company/database_copy.h"
#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/postgresql_server.h"

namespace tallyra::client {

// The client on a company on SQLite and on the same one on a database server, which have to say the same.
class ClosingOnAServer : public ClosingClient {
 protected:
  void SetUp() override {
    if (!tests::PostgresqlServer::is_installed()) GTEST_SKIP() << "no server on this machine";
    company::copy_database(company_.file().string(), connection_, [](auto, auto, auto, auto) {});
  }
  // On SQLite and on the server, each with --csv.
  void expect_the_same(std::vector<std::string> words, ExitStatus status = exit_done) {
    SCOPED_TRACE(words.front() + " " + (words.size() > 1 ? words[1] : std::string()));
    words.insert(words.end(), {"--csv", "--yes"});
    EXPECT_EQ(client_.run(words), status) << client_.all();
    const std::string on_sqlite = client_.out();
    EXPECT_EQ(server_.run(words), status) << server_.all();
    EXPECT_EQ(server_.out(), on_sqlite) << server_.error();
  }

  tests::PostgresqlServer& postgresql_ = tests::PostgresqlServer::shared();
  std::string connection_ = postgresql_.connection_string(postgresql_.new_database());
  ClientProgram server_{{"--db", connection_, "--user", "ADMIN", "--kind", "MSSQLSERVER"}};
};

}  // namespace tallyra::client
