#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "standins/ado/date_column_catalog.h"
#include "standins/ado/dialect/sqlite_dialect.h"
#include "standins/ado/odbc_handle.h"
#include "standins/ado/row_reader.h"
#include "standins/ado/trace.h"

namespace tallyra::standins::ado {

// A connected session. Results are read whole when a statement has run, so one statement handle serves all
// statements, and any number of recordsets may be open meanwhile.
class OdbcConnection {
 public:
  struct Result {
    std::unique_ptr<RowSet> rows;     // none when the statement has no rowset
    std::int64_t affected_rows = -1;  // -1 when there are rows, or unknown, or not asked for
  };

  // Throws Error when the connection cannot be made. A driver may not know a login timeout.
  OdbcConnection(const std::string& odbc_string, std::int32_t login_seconds);
  // Discards an open transaction.
  ~OdbcConnection();
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;

  // Runs a statement in the words of the component's dialects. Throws Error.
  Result run(std::string_view sql, bool count_affected);

  // How long a statement may take, 0 for ever. A driver without such a limit ignores it.
  void limit_statements(std::int32_t seconds);

  // What the driver says about itself or the database under a number of SQLGetInfo that stands for a text;
  // empty when it says nothing.
  std::string information(SQLUSMALLINT kind) const;
  // The connection string as the driver completed it, from the data source and its defaults.
  const std::string& completed_string() const { return login_.completed_string; }

  bool in_transaction() const { return in_transaction_; }
  // Must not be in a transaction.
  void begin();
  // Must be in a transaction. It stays open when the commit fails.
  void commit();
  // Must be in a transaction. There is none afterwards, whatever happens.
  void rollback();

 private:
  struct Login {
    Login(const std::string& odbc_string, std::int32_t seconds);
    ~Login();
    OdbcHandle<SQL_HANDLE_ENV> environment;
    OdbcHandle<SQL_HANDLE_DBC> handle;
    std::string completed_string;
  };

  bool is_sqlite() const;
  bool rereads_bound_columns();
  // Throws Error where a text meets a date column and is no date: SQLite itself would take it.
  std::string_view in_words_of_engine(std::string_view sql);
  // SQLite lets a transaction that has read write no more once another process has committed a change, and to
  // look up a column is to read. So the first statement of a transaction begins with the lock. Throws Error
  // when another keeps it.
  void take_write_lock();
  Result read_result(std::string_view sql, bool count_affected);
  SQLRETURN set_autocommit(bool on);
  void trace(Operation operation, std::string_view text, std::uint64_t rows, bool succeeded) const {
    if (TraceSink* const sink = trace_sink()) sink->operation({ordinal_, operation, text, rows, succeeded});
  }

  const std::uint64_t ordinal_;
  Login login_;
  OdbcHandle<SQL_HANDLE_STMT> statement_;
  const DriverTraits traits_;
  RowReader reader_;
  bool in_transaction_ = false;
  bool holds_write_lock_ = false;  // in this transaction
  DateColumnCatalog date_columns_;
  std::unique_ptr<dialect::SqliteDialect> dialect_;
};

}  // namespace tallyra::standins::ado
