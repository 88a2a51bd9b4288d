#include "bench/postgresql_replay.h"

#include <libpq-fe.h>

#include <stdexcept>

#include "bench/connection_key.h"

namespace tallyra::bench {
namespace {

struct ConnectionFinisher {
  void operator()(PGconn* connection) const { PQfinish(connection); }
};
struct ResultClearer {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultClearer>;

PGconn* opened(const std::string& connection_string) {
  const std::string host = connection_key(connection_string, "Servername");
  const std::string port = connection_key(connection_string, "Port");
  const std::string database = connection_key(connection_string, "Database");
  const std::string user = connection_key(connection_string, "Username");
  const char* const keywords[] = {"host", "port", "dbname", "user", nullptr};
  const char* const values[] = {host.c_str(), port.c_str(), database.c_str(), user.c_str(), nullptr};
  return PQconnectdbParams(keywords, values, 0);
}

void drain(const PGresult* result) {
  for (int row = 0; row < PQntuples(result); ++row)
    for (int column = 0; column < PQnfields(result); ++column)
      if (PQgetisnull(result, row, column) == 0) PQgetvalue(result, row, column);
}

// What is still open when the connection ends is rolled back by the server.
class TextConnection : public ReplayConnection {
 public:
  explicit TextConnection(const std::string& connection_string) : connection_(opened(connection_string)) {
    if (PQstatus(connection_.get()) != CONNECTION_OK) fail();
  }

  void run(std::string& sql, bool) override {
    const Result result(PQexec(connection_.get(), sql.c_str()));
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) fail();
    drain(result.get());
  }
  void begin() override { control("BEGIN"); }
  void commit() override { control("COMMIT"); }
  void roll_back() override { control("ROLLBACK"); }

 private:
  void control(const char* command) {
    std::string sql = command;
    run(sql, false);
  }

  [[noreturn]] void fail() const { throw std::runtime_error(PQerrorMessage(connection_.get())); }

  std::unique_ptr<PGconn, ConnectionFinisher> connection_;
};

}  // namespace

Connect through_postgresql_by_text() {
  return [](std::string& connection_string) { return std::make_unique<TextConnection>(connection_string); };
}

}  // namespace tallyra::bench
