#include "bench/odbc_replay.h"

#include <sql.h>
#include <sqlext.h>

#include <stdexcept>
#include <vector>

namespace tallyra::bench {
namespace {

void require(bool good, SQLSMALLINT kind, SQLHANDLE handle) {
  if (good) return;
  SQLCHAR state[6] = "";
  SQLCHAR text[512] = "";
  SQLGetDiagRec(kind, handle, 1, state, nullptr, text, sizeof text, nullptr);
  throw std::runtime_error(reinterpret_cast<const char*>(text));
}

SQLCHAR* characters(std::string& text) {
  return reinterpret_cast<SQLCHAR*>(text.data());
}

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

class OdbcReplayConnection : public ReplayConnection {
 public:
  OdbcReplayConnection(std::shared_ptr<Environment> environment, std::string& connection_string)
      : environment_(std::move(environment)) {
    SQLAllocHandle(SQL_HANDLE_DBC, environment_->handle(), &connection_);
    require(SQL_SUCCEEDED(SQLDriverConnect(connection_, nullptr, characters(connection_string), SQL_NTS,
                                           nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)),
            SQL_HANDLE_DBC, connection_);
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement_);
  }
  ~OdbcReplayConnection() override {
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  }
  OdbcReplayConnection(const OdbcReplayConnection&) = delete;
  OdbcReplayConnection& operator=(const OdbcReplayConnection&) = delete;

  void run(std::string& sql, bool is_query) override {
    const SQLRETURN result = SQLExecDirect(statement_, characters(sql), static_cast<SQLINTEGER>(sql.size()));
    require(SQL_SUCCEEDED(result) || result == SQL_NO_DATA, SQL_HANDLE_STMT, statement_);
    if (is_query) read_rows();
    SQLFreeStmt(statement_, SQL_CLOSE);
  }

  void begin() override { set_autocommit(false); }
  void commit() override { end(SQL_COMMIT); }
  void roll_back() override { end(SQL_ROLLBACK); }

 private:
  void end(SQLSMALLINT how) {
    require(SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_, how)), SQL_HANDLE_DBC, connection_);
    set_autocommit(true);
  }

  void set_autocommit(bool on) {
    const SQLULEN mode = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface takes a number in place of an address
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

  std::shared_ptr<Environment> environment_;
  SQLHDBC connection_ = nullptr;
  SQLHSTMT statement_ = nullptr;
};

}  // namespace

Connect through_odbc() {
  // Lives through a whole replay, as the component's does.
  const auto environment = std::make_shared<Environment>();
  return [=](std::string& connection_string) {
    return std::make_unique<OdbcReplayConnection>(environment, connection_string);
  };
}

}  // namespace tallyra::bench
