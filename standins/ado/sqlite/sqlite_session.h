#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "standins/ado/engine.h"
#include "standins/ado/session_trace.h"
#include "standins/ado/sqlite/literal_binder.h"
#include "standins/ado/sqlite/prepared_forms.h"
#include "standins/ado/sqlite/sqlite_database.h"
#include "standins/ado/sqlite/sqlite_date_columns.h"

namespace tallyra::standins::ado {

// A session of SQLite's own library. Texts that differ in nothing but values share one compiled statement;
// what they store is, value and storage class, what each text by itself would have stored. A transaction
// takes the write lock with its first statement. There is no limit to how long a statement may take.
class SqliteSession : public EngineSession {
 public:
  // Throws Error when the database cannot be opened.
  explicit SqliteSession(SqliteSource source);
  ~SqliteSession() override;

  StatementResult run(std::string_view sql, bool count_affected) override;
  void limit_statements(std::int32_t) override {}
  std::string information(Information kind) const override;
  std::string completed_string() const override;
  bool in_transaction() const override { return in_transaction_; }
  void begin() override;
  void commit() override;
  void rollback() override;

  // How many texts it has compiled so that others of the same form need not be.
  std::size_t compiled_forms() const { return compiled_forms_; }

 private:
  // SQLite lets a transaction that has read write no more once another process has committed a change, and
  // even to compile may be to read. So its first statement begins with the write lock. Throws Error when
  // another keeps it.
  void open_transaction();
  void require_not_lost();
  // Forgets what is known of the schema when another connection has changed it.
  void notice_other_schema();
  void forget_schema();

  // Bound and ready to be run; none when the text must go as it is.
  PreparedForm prepare_form(std::string_view sql);
  PreparedForm compile_form(std::string_view sql);
  StatementResult run_form(sqlite3_stmt* statement, std::string_view sql, bool count_affected);
  StatementResult run_text(std::string_view sql, bool count_affected);
  StatementResult step(sqlite3_stmt* statement, std::string_view text, bool count_affected);
  [[noreturn]] void fail(std::string_view text);

  const SqliteSource source_;
  const SessionTrace trace_;
  const DatabaseHandle database_;
  SqliteDateColumns date_columns_;
  dialect::SqliteDialect dialect_;
  dialect::StatementForm form_;
  std::vector<dialect::LiteralUse> uses_;
  PreparedForms prepared_;
  LiteralBinder binder_;
  StatementHandle schema_watch_;
  std::size_t compiled_forms_ = 0;
  bool knows_schema_ = false;
  bool schema_checked_here_ = false;  // in this transaction
  bool schema_changed_here_ = false;  // too
  bool in_transaction_ = false;
  bool transaction_open_ = false;  // and the library has been told of it
  bool transaction_lost_ = false;  // the library has taken it back by itself
};

}  // namespace tallyra::standins::ado
