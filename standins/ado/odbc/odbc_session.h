#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "standins/ado/dialect/dialect.h"
#include "standins/ado/engine.h"
#include "standins/ado/odbc/date_column_catalog.h"
#include "standins/ado/odbc/odbc_handle.h"
#include "standins/ado/odbc/row_reader.h"
#include "standins/ado/session_trace.h"

namespace tallyra::standins::ado {

// A session through ODBC, whose driver and source the connection string names. One statement handle serves
// all statements.
class OdbcSession : public EngineSession {
 public:
  // Throws Error when the connection cannot be made. A driver may not know a login timeout.
  OdbcSession(const std::string& odbc_string, std::int32_t login_seconds);
  ~OdbcSession() override;

  StatementResult run(std::string_view sql, bool count_affected) override;
  void limit_statements(std::int32_t seconds) override;
  std::string information(Information kind) const override;
  std::string completed_string() const override { return login_.completed_string; }
  bool in_transaction() const override { return in_transaction_; }
  void begin() override;
  void commit() override;
  void rollback() override;

 private:
  struct Login {
    Login(const std::string& odbc_string, std::int32_t seconds);
    ~Login();
    OdbcHandle<SQL_HANDLE_ENV> environment;
    OdbcHandle<SQL_HANDLE_DBC> handle;
    std::string completed_string;
  };

  // What the driver says under a number of SQLGetInfo that stands for a text; empty when it says nothing.
  std::string told(SQLUSMALLINT kind) const;
  bool is_sqlite() const;
  bool is_postgresql() const;
  std::unique_ptr<dialect::Dialect> dialect_of_engine();
  bool rereads_bound_columns();
  // Throws Error where a text meets a date column and is no date: SQLite itself would take it.
  std::string_view in_words_of_engine(std::string_view sql);
  // SQLite lets a transaction that has read write no more once another process has committed a change, and to
  // look up a column is to read. So the first statement of a transaction begins with the lock. Throws Error
  // when another keeps it.
  void take_write_lock();
  // Throws Error when the statement, which is none of the client's, fails.
  void run_own(std::string_view sql);
  void mark_transaction();
  StatementResult read_result(std::string_view sql, bool count_affected);
  SQLRETURN set_autocommit(bool on);

  const SessionTrace trace_;
  Login login_;
  OdbcHandle<SQL_HANDLE_STMT> statement_;
  const DriverTraits traits_;
  RowReader reader_;
  bool in_transaction_ = false;
  bool holds_write_lock_ = false;  // in this transaction
  DateColumnCatalog date_columns_;
  std::unique_ptr<dialect::Dialect> dialect_;
};

}  // namespace tallyra::standins::ado
