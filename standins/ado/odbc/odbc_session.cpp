#include "standins/ado/odbc/odbc_session.h"

#include <array>
#include <optional>

#include "automation/folded_name.h"
#include "standins/ado/dialect/postgresql_dialect.h"
#include "standins/ado/dialect/sqlite_dialect.h"
#include "standins/ado/odbc/odbc_environment.h"
#include "standins/ado/odbc/odbc_error.h"
#include "standins/ado/odbc/statement_scope.h"
#include "standins/ado/reaching_keywords.h"
#include "standins/ado/translation.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::size_t longest_completed_string = 4096;

// PostgreSQL's driver may lose a transaction, begin another in silence and report that one's commit. Only the
// transaction that was begun has this savepoint.
constexpr std::string_view mark_of_transaction = "SAVEPOINT tallyra_begun";
constexpr std::string_view check_of_transaction = "RELEASE SAVEPOINT tallyra_begun";

SQLUSMALLINT info_number(Information kind) {
  switch (kind) {
    case Information::current_catalog: return SQL_DATABASE_NAME;
    case Information::data_source_name: return SQL_DATA_SOURCE_NAME;
    case Information::dbms_name: return SQL_DBMS_NAME;
    case Information::dbms_version: return SQL_DBMS_VER;
    case Information::driver_name: return SQL_DRIVER_NAME;
    case Information::driver_version: return SQL_DRIVER_VER;
    case Information::server_name: return SQL_SERVER_NAME;
    case Information::user_name: break;
  }
  return SQL_USER_NAME;
}

}  // namespace

OdbcSession::Login::Login(const std::string& odbc_string, std::int32_t seconds)
    : environment(make_odbc_environment()), handle(SQL_HANDLE_ENV, environment.get()) {
  refuse_reaching_keywords(odbc_string);
  SQLSetConnectAttr(handle.get(), SQL_ATTR_LOGIN_TIMEOUT, odbc_number(static_cast<SQLULEN>(seconds)), 0);
  std::array<SQLCHAR, longest_completed_string> completed{};
  handle.require(SQLDriverConnect(handle.get(), nullptr, odbc_text(odbc_string.c_str()), SQL_NTS,
                                  completed.data(), static_cast<SQLSMALLINT>(completed.size()), nullptr,
                                  SQL_DRIVER_NOPROMPT));
  completed_string = reinterpret_cast<const char*>(completed.data());
}

OdbcSession::Login::~Login() {
  if (SQL_SUCCEEDED(SQLDisconnect(handle.get()))) return;
  SQLEndTran(SQL_HANDLE_DBC, handle.get(), SQL_ROLLBACK);
  SQLDisconnect(handle.get());
}

OdbcSession::OdbcSession(const std::string& odbc_string, std::int32_t login_seconds)
    : trace_("odbc"),
      login_(odbc_string, login_seconds),
      statement_(SQL_HANDLE_DBC, login_.handle.get()),
      traits_{is_sqlite(), rereads_bound_columns(), is_postgresql()},
      reader_(traits_),
      date_columns_(statement_.get(), traits_.is_postgresql),
      dialect_(dialect_of_engine()) {
  trace_(Operation::connect, odbc_string, 0, true);
}

OdbcSession::~OdbcSession() {
  // The SQLite driver lets neither the transaction nor the connection go while a statement is there.
  statement_.reset();
  if (in_transaction_) {
    SQLEndTran(SQL_HANDLE_DBC, login_.handle.get(), SQL_ROLLBACK);
    trace_(Operation::rollback, {}, 0, true);
  }
  trace_(Operation::disconnect, {}, 0, true);
}

std::string OdbcSession::information(Information kind) const {
  return told(info_number(kind));
}

std::string OdbcSession::told(SQLUSMALLINT kind) const {
  std::array<char, 1024> text{};
  SQLSMALLINT length = 0;
  const SQLRETURN result =
      SQLGetInfo(login_.handle.get(), kind, text.data(), static_cast<SQLSMALLINT>(text.size()), &length);
  return SQL_SUCCEEDED(result) ? text.data() : std::string();
}

bool OdbcSession::is_sqlite() const {
  return automation::equals_folded(told(SQL_DBMS_NAME), "SQLite");
}

bool OdbcSession::is_postgresql() const {
  return automation::equals_folded(told(SQL_DBMS_NAME), "PostgreSQL");
}

std::unique_ptr<dialect::Dialect> OdbcSession::dialect_of_engine() {
  if (is_sqlite()) return std::make_unique<dialect::SqliteDialect>(date_columns_);
  if (is_postgresql()) return std::make_unique<dialect::PostgresqlDialect>(date_columns_);
  return nullptr;
}

bool OdbcSession::rereads_bound_columns() {
  SQLUINTEGER extensions = 0;
  SQLGetInfo(login_.handle.get(), SQL_GETDATA_EXTENSIONS, &extensions, sizeof extensions, nullptr);
  constexpr SQLUINTEGER needed = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BOUND;
  return (extensions & needed) == needed;
}

std::string_view OdbcSession::in_words_of_engine(std::string_view sql) {
  if (!dialect_) return sql;
  if (traits_.is_sqlite && in_transaction_ && !holds_write_lock_) take_write_lock();
  return translated(*dialect_, sql);
}

void OdbcSession::take_write_lock() {
  // Of all statements that begin to write, this one alone needs no table and changes nothing that is stored.
  constexpr std::string_view lock = "PRAGMA incremental_vacuum(1)";
  const StatementScope scope(statement_.get());
  const auto failure = statement_.failure(
      SQLExecDirect(statement_.get(), odbc_text(lock.data()), static_cast<SQLINTEGER>(lock.size())));
  if (failure && failure->description() == "database is locked") throw *failure;
  // Where nothing can be written at all, reading goes on.
  holds_write_lock_ = !failure;
}

void OdbcSession::run_own(std::string_view sql) {
  const StatementScope scope(statement_.get());
  statement_.require(
      SQLExecDirect(statement_.get(), odbc_text(sql.data()), static_cast<SQLINTEGER>(sql.size())));
}

StatementResult OdbcSession::run(std::string_view sql, bool count_affected) {
  refuse_nul(sql);
  sql = in_words_of_engine(sql);
  const SQLRETURN result =
      SQLExecDirect(statement_.get(), odbc_text(sql.data()), static_cast<SQLINTEGER>(sql.size()));
  // A statement that changed no row at all says SQL_NO_DATA, which is no failure.
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    trace_(Operation::execute, sql, 0, false);
    raise_diagnostic(SQL_HANDLE_STMT, statement_.get());
  }
  return read_result(sql, count_affected);
}

StatementResult OdbcSession::read_result(std::string_view sql, bool count_affected) {
  StatementResult result;
  SQLSMALLINT columns = 0;
  statement_.require(SQLNumResultCols(statement_.get(), &columns));
  if (columns > 0) {
    const StatementScope scope(statement_.get());
    result.rows = reader_.read(statement_.get(), columns);
    trace_(Operation::query, sql, result.rows->row_count(), true);
    return result;
  }
  if (count_affected) {
    SQLLEN affected = -1;
    SQLRowCount(statement_.get(), &affected);
    result.affected_rows = affected;
  }
  if (dialect_ && dialect_->changes_schema()) date_columns_.forget();
  trace_(Operation::execute, sql, 0, true);
  return result;
}

void OdbcSession::limit_statements(std::int32_t seconds) {
  SQLSetStmtAttr(statement_.get(), SQL_ATTR_QUERY_TIMEOUT, odbc_number(static_cast<SQLULEN>(seconds)), 0);
}

SQLRETURN OdbcSession::set_autocommit(bool on) {
  return SQLSetConnectAttr(login_.handle.get(), SQL_ATTR_AUTOCOMMIT,
                           odbc_number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0);
}

void OdbcSession::begin() {
  const SQLRETURN result = set_autocommit(false);
  trace_(Operation::begin, {}, 0, SQL_SUCCEEDED(result));
  login_.handle.require(result);
  in_transaction_ = true;
  holds_write_lock_ = false;
  if (traits_.is_postgresql) mark_transaction();
}

// What cannot be marked is no transaction.
void OdbcSession::mark_transaction() {
  try {
    run_own(mark_of_transaction);
  } catch (const automation::Error&) {
    in_transaction_ = false;
    const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, login_.handle.get(), SQL_ROLLBACK);
    trace_(Operation::rollback, {}, 0, SQL_SUCCEEDED(result));
    set_autocommit(true);
    throw;
  }
}

void OdbcSession::commit() {
  if (traits_.is_postgresql) run_own(check_of_transaction);
  const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, login_.handle.get(), SQL_COMMIT);
  trace_(Operation::commit, {}, 0, SQL_SUCCEEDED(result));
  login_.handle.require(result);
  in_transaction_ = false;
  login_.handle.require(set_autocommit(true));
}

void OdbcSession::rollback() {
  const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, login_.handle.get(), SQL_ROLLBACK);
  trace_(Operation::rollback, {}, 0, SQL_SUCCEEDED(result));
  date_columns_.forget();
  if (dialect_) dialect_->forget();
  in_transaction_ = false;
  // Whatever the rollback says, later statements must not gather in a transaction nobody opened.
  const std::optional<automation::Error> failure = login_.handle.failure(result);
  const SQLRETURN restored = set_autocommit(true);
  if (failure) throw *failure;
  login_.handle.require(restored);
}

}  // namespace tallyra::standins::ado
