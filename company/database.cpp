#include "company/database.h"

#include <cstring>

namespace tallyra::company {
namespace {

std::string driver_message(SQLSMALLINT type, SQLHANDLE handle) {
  SQLCHAR state[6] = {};
  SQLCHAR text[1024] = {};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const auto result = SQLGetDiagRec(type, handle, 1, state, &native, text, sizeof text, &length);
  return SQL_SUCCEEDED(result) ? reinterpret_cast<const char*>(text) : "no message from the driver";
}

[[noreturn]] void fail(SQLSMALLINT type, SQLHANDLE handle, std::string_view what) {
  throw DatabaseError(driver_message(type, handle) + " (" + std::string(what) + ")");
}

SQLCHAR* sql_text(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

class Statement {
 public:
  explicit Statement(SQLHDBC connection) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_))) {
      fail(SQL_HANDLE_DBC, connection, "new statement");
    }
  }
  ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void execute(const std::string& sql) {
    const auto result = SQLExecDirect(handle_, sql_text(sql), SQL_NTS);
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) fail(SQL_HANDLE_STMT, handle_, sql);
  }
  SQLHSTMT handle() const { return handle_; }

 private:
  SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

std::string read_text(SQLHSTMT statement, SQLUSMALLINT column) {
  std::string value;
  char part[512];
  SQLLEN length = 0;
  while (SQL_SUCCEEDED(SQLGetData(statement, column, SQL_C_CHAR, part, sizeof part, &length))) {
    if (length == SQL_NULL_DATA) break;
    value += part;
    if (length != SQL_NO_TOTAL && length < static_cast<SQLLEN>(sizeof part)) break;
  }
  return value;
}

}  // namespace

Database::Database(const std::string& path) {
  if (path.find(';') != std::string::npos) {
    throw DatabaseError("a database path cannot hold a semicolon: " + path);
  }
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  const std::string connection = "DRIVER={SQLite3};Database=" + path;
  const auto result = SQLDriverConnect(connection_, nullptr, sql_text(connection), SQL_NTS, nullptr, 0,
                                       nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(result)) {
    const std::string message = driver_message(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    throw DatabaseError(message + " (connecting to " + path + ")");
  }
}

Database::~Database() {
  if (in_transaction_) SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
  SQLDisconnect(connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

void Database::execute(const std::string& sql) {
  Statement(connection_).execute(sql);
}

std::vector<std::vector<std::string>> Database::query(const std::string& sql) {
  Statement statement(connection_);
  statement.execute(sql);
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement.handle(), &columns);
  std::vector<std::vector<std::string>> rows;
  while (SQL_SUCCEEDED(SQLFetch(statement.handle()))) {
    auto& row = rows.emplace_back();
    for (SQLSMALLINT column = 1; column <= columns; ++column) {
      row.push_back(read_text(statement.handle(), static_cast<SQLUSMALLINT>(column)));
    }
  }
  return rows;
}

void Database::begin() {
  SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
  in_transaction_ = true;
}

void Database::commit() {
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT))) {
    fail(SQL_HANDLE_DBC, connection_, "commit");
  }
  in_transaction_ = false;
  SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
}

Insert::Insert(Database& database, std::string_view table, std::initializer_list<Column> columns) {
  sql_ = "INSERT INTO " + std::string(table) + "(";
  std::string marks;
  for (const Column& column : columns) {
    if (!marks.empty()) sql_ += ',';
    sql_ += column.name;
    marks += marks.empty() ? "?" : ",?";
    cells_.push_back({.kind = column.kind});
  }
  sql_ += ") VALUES(" + marks + ")";
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, database.handle(), &statement_))) {
    fail(SQL_HANDLE_DBC, database.handle(), sql_);
  }
  if (!SQL_SUCCEEDED(SQLPrepare(statement_, sql_text(sql_), SQL_NTS))) {
    const std::string message = driver_message(SQL_HANDLE_STMT, statement_) + " (" + sql_ + ")";
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    throw DatabaseError(message);
  }
  SQLUSMALLINT number = 0;
  for (Cell& cell : cells_) {
    ++number;
    switch (cell.kind) {
      case Kind::text:
        SQLBindParameter(statement_, number, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, cell.text.size(), 0,
                         cell.text.data(), static_cast<SQLLEN>(cell.text.size()), &cell.length);
        break;
      case Kind::number:
        SQLBindParameter(statement_, number, SQL_PARAM_INPUT, SQL_C_DOUBLE, SQL_DOUBLE, 0, 0, &cell.number, 0,
                         &cell.length);
        break;
      case Kind::integer:
        SQLBindParameter(statement_, number, SQL_PARAM_INPUT, SQL_C_SBIGINT, SQL_BIGINT, 0, 0, &cell.integer,
                         0, &cell.length);
        break;
    }
  }
}

Insert::~Insert() {
  SQLFreeHandle(SQL_HANDLE_STMT, statement_);
}

void Insert::put(Cell& cell, std::string_view value) {
  if (cell.kind != Kind::text || value.size() >= cell.text.size())
    throw std::logic_error("not a text for this column");
  std::memcpy(cell.text.data(), value.data(), value.size());
  cell.length = static_cast<SQLLEN>(value.size());
}

void Insert::put(Cell& cell, double value) {
  if (cell.kind != Kind::number) throw std::logic_error("not a number column");
  cell.number = value;
  cell.length = sizeof value;
}

void Insert::put_integer(Cell& cell, std::int64_t value) {
  if (cell.kind != Kind::integer) throw std::logic_error("not an integer column");
  cell.integer = value;
  cell.length = sizeof value;
}

void Insert::run() {
  if (!SQL_SUCCEEDED(SQLExecute(statement_))) fail(SQL_HANDLE_STMT, statement_, sql_);
}

}  // namespace tallyra::company
