#include "tests/support/empty_database.h"

#include <cstdlib>
#include <fstream>
#include <random>

#include "standins/ado/local_classes.h"
#include "standins/corvane/connection_string.h"
#include "tests/support/test_folder.h"

#ifndef _WIN32
#include <stdexcept>

#include "standins/ado/postgresql/connection_options.h"
#include "standins/ado/postgresql/wire.h"
#endif

namespace tallyra::tests {
namespace {

class SqliteDatabase : public EmptyDatabase {
 public:
  explicit SqliteDatabase(std::unique_ptr<TestFolder> folder)
      : EmptyDatabase("DRIVER={SQLite3};Database=" + folder->file("empty.db") +
                      ";SyncPragma=OFF;Timeout=2000"),
        folder_(std::move(folder)) {
    std::ofstream(folder_->file("empty.db"), std::ios::app);
  }

 private:
  std::unique_ptr<TestFolder> folder_;
};

#ifndef _WIN32
std::string with_database(const std::string& connection_string, const std::string& name) {
  standins::corvane::ConnectionString parts(connection_string);
  parts.set("Database", name);
  return parts.text();
}

class PostgresqlDatabase : public EmptyDatabase {
 public:
  PostgresqlDatabase(const std::string& server, const std::string& name)
      : EmptyDatabase(with_database(server, name)), server_(server), name_(name) {
    on_server("CREATE DATABASE " + name_ + " ENCODING 'UTF8' TEMPLATE template0");
  }
  ~PostgresqlDatabase() override {
    try {
      on_server("DROP DATABASE " + name_ + " WITH (FORCE)");
    } catch (const std::exception&) {
      // It stays on a server that is there for tests.
    }
  }

 private:
  // Past the guard of ADO's connection, to which another database is none of a client's.
  void on_server(const std::string& statement) const {
    using namespace standins::ado;
    Wire wire(read_postgresql_options(read_connection_string(server_, {}, {}, 0)));
    wire.add(statement);
    const Result& result = wire.exchange().front();
    if (!succeeded(result)) throw std::runtime_error(PQresultErrorMessage(result.get()));
  }

  std::string server_;
  std::string name_;
};
#endif

std::unique_ptr<EmptyDatabase> empty_sqlite() {
  standins::ado::register_classes();
  return std::make_unique<SqliteDatabase>(std::make_unique<TestFolder>());
}

std::unique_ptr<EmptyDatabase> empty_postgresql() {
#ifdef _WIN32
  return nullptr;
#else
  const char* const server = std::getenv("TALLYRA_POSTGRES");
  if (!server) return nullptr;
  standins::ado::register_classes();
  return std::make_unique<PostgresqlDatabase>(server,
                                              "tallyra_test_" + std::to_string(std::random_device()()));
#endif
}

}  // namespace

const TestedEngine sqlite_engine{"SQLite", empty_sqlite};
const TestedEngine postgresql_engine{"PostgreSQL", empty_postgresql};

}  // namespace tallyra::tests
