#include "bench/odbc_replay.h"

#include <sql.h>
#include <sqlext.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

#include "bench/statement_log.h"

namespace tallyra::bench {
namespace {

using standins::ado::Operation;

void require(bool good, SQLSMALLINT kind, SQLHANDLE handle, const std::string& what) {
  if (good) return;
  SQLCHAR state[6] = "";
  SQLCHAR text[512] = "";
  SQLGetDiagRec(kind, handle, 1, state, nullptr, text, sizeof text, nullptr);
  throw std::runtime_error(what + ": " + reinterpret_cast<const char*>(text));
}

SQLCHAR* characters(std::string& text) {
  return reinterpret_cast<SQLCHAR*>(text.data());
}

class PlainConnection {
 public:
  PlainConnection(SQLHENV environment, std::string& connection_string) {
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection_);
    require(SQL_SUCCEEDED(SQLDriverConnect(connection_, nullptr, characters(connection_string), SQL_NTS,
                                           nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)),
            SQL_HANDLE_DBC, connection_, connection_string);
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement_);
  }
  ~PlainConnection() {
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  }
  PlainConnection(const PlainConnection&) = delete;
  PlainConnection& operator=(const PlainConnection&) = delete;

  void run(LoggedOperation& logged) {
    const SQLRETURN result =
        SQLExecDirect(statement_, characters(logged.text), static_cast<SQLINTEGER>(logged.text.size()));
    require(SQL_SUCCEEDED(result) || result == SQL_NO_DATA || !logged.succeeded, SQL_HANDLE_STMT, statement_,
            logged.text);
    if (logged.operation == Operation::query) read_rows();
    SQLFreeStmt(statement_, SQL_CLOSE);
  }

  void begin() { set_autocommit(false); }
  void end(SQLSMALLINT how) {
    require(SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_, how)), SQL_HANDLE_DBC, connection_, "end");
    set_autocommit(true);
  }

 private:
  void set_autocommit(bool on) {
    const SQLULEN mode = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(mode), 0);
  }

  void read_rows() {
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement_, &columns);
    struct Column {
      char text[256];
      SQLLEN length;
    };
    std::vector<Column> row(static_cast<std::size_t>(columns));
    for (std::size_t i = 0; i < row.size(); ++i)
      SQLBindCol(statement_, static_cast<SQLUSMALLINT>(i + 1), SQL_C_CHAR, row[i].text, sizeof row[i].text,
                 &row[i].length);
    while (SQL_SUCCEEDED(SQLFetch(statement_))) {
    }
    SQLFreeStmt(statement_, SQL_UNBIND);
  }

  SQLHDBC connection_ = nullptr;
  SQLHSTMT statement_ = nullptr;
};

class Environment {
 public:
  Environment() {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &handle_);
    SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  }
  ~Environment() { SQLFreeHandle(SQL_HANDLE_ENV, handle_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  SQLHENV handle() const { return handle_; }

 private:
  SQLHENV handle_ = nullptr;
};

}  // namespace

std::uint64_t replay(const std::string& log_path) {
  const Environment environment;
  std::map<std::uint32_t, std::unique_ptr<PlainConnection>> connections;
  StatementReader log(log_path);
  LoggedOperation logged;
  std::uint64_t statements = 0;
  while (log.next(logged)) {
    if (logged.operation == Operation::connect) {
      if (logged.succeeded)
        connections[logged.connection] = std::make_unique<PlainConnection>(environment.handle(), logged.text);
      continue;
    }
    PlainConnection& connection = *connections.at(logged.connection);
    switch (logged.operation) {
      case Operation::execute:
      case Operation::query:
        connection.run(logged);
        ++statements;
        break;
      case Operation::begin: connection.begin(); break;
      case Operation::commit: connection.end(SQL_COMMIT); break;
      case Operation::rollback: connection.end(SQL_ROLLBACK); break;
      case Operation::disconnect: connections.erase(logged.connection); break;
      case Operation::connect: break;
    }
  }
  return statements;
}

}  // namespace tallyra::bench
