// Transactions, and what a session knows of a schema that others may change.

#include "standins/ado/ado_error.h"
#include "standins/ado/sqlite/sqlite_error.h"
#include "standins/ado/sqlite/sqlite_session.h"

namespace tallyra::standins::ado {

void SqliteSession::begin() {
  in_transaction_ = true;
  transaction_open_ = transaction_lost_ = schema_checked_here_ = schema_changed_here_ = false;
  trace_(Operation::begin, {}, 0, true);
}

// Short of memory the library takes everything back, and no statement may have said so.
void SqliteSession::require_not_lost() {
  if (transaction_open_ && sqlite3_get_autocommit(database_.get()) != 0) transaction_lost_ = true;
  if (transaction_lost_)
    throw automation::Error(provider_error::unspecified, "The database has rolled the transaction back");
}

void SqliteSession::open_transaction() {
  require_not_lost();
  if (!in_transaction_ || source_.without_transactions) return;
  sqlite3* const database = database_.get();
  // Also anew behind a client's own COMMIT, and not within its own BEGIN.
  if (sqlite3_get_autocommit(database) == 0) return;
  const int code = execute_sqlite(database, "BEGIN IMMEDIATE");
  if ((code & 0xFF) == SQLITE_BUSY) throw sqlite_error(database);
  // Where nothing can be written at all, reading goes on.
  if (code != SQLITE_OK) require_sqlite(database, execute_sqlite(database, "BEGIN"));
  transaction_open_ = true;
}

void SqliteSession::commit() {
  require_not_lost();
  sqlite3* const database = database_.get();
  const int code = sqlite3_get_autocommit(database) == 0 ? execute_sqlite(database, "COMMIT") : SQLITE_OK;
  trace_(Operation::commit, {}, 0, code == SQLITE_OK);
  if (code != SQLITE_OK) {
    const automation::Error error = sqlite_error(database);
    if (sqlite3_get_autocommit(database) != 0) transaction_lost_ = true;
    throw error;
  }
  in_transaction_ = transaction_open_ = false;
}

void SqliteSession::rollback() {
  sqlite3* const database = database_.get();
  const int code = sqlite3_get_autocommit(database) == 0 ? execute_sqlite(database, "ROLLBACK") : SQLITE_OK;
  trace_(Operation::rollback, {}, 0, code == SQLITE_OK);
  in_transaction_ = transaction_open_ = transaction_lost_ = false;
  if (schema_changed_here_) forget_schema();
  require_sqlite(database, code);
}

// Within a transaction of ours nobody else can change it. Otherwise a statement tells that runs on no table:
// the library compiles it anew, and reads the schema anew for that, when the schema has changed.
void SqliteSession::notice_other_schema() {
  if (transaction_open_ && schema_checked_here_) return;
  schema_checked_here_ = transaction_open_;
  if (!knows_schema_) return;
  const bool first = !schema_watch_;
  if (first)
    schema_watch_ =
        prepare_sqlite(database_.get(), "SELECT 1 FROM sqlite_master LIMIT 0", SQLITE_PREPARE_PERSISTENT);
  sqlite3_stmt* const watch = schema_watch_.get();
  if (!watch) throw sqlite_error(database_.get());
  const StatementRun run(watch);
  require_sqlite(database_.get(), sqlite3_step(watch));
  // What is known from before the first look may be older than what this look compared with.
  if (sqlite3_stmt_status(watch, SQLITE_STMTSTATUS_REPREPARE, 1) != 0 || first) forget_schema();
}

void SqliteSession::forget_schema() {
  dialect_.forget();
  prepared_.clear();
  knows_schema_ = false;
}

std::string SqliteSession::information(Information kind) const {
  switch (kind) {
    case Information::current_catalog:
    case Information::server_name: return source_.path;
    case Information::dbms_name: return "SQLite";
    case Information::driver_name: return "libsqlite3";
    case Information::dbms_version:
    case Information::driver_version: return sqlite3_libversion();
    default: return {};
  }
}

std::string SqliteSession::completed_string() const {
  const auto number = [](bool on) { return on ? "1" : "0"; };
  return "DRIVER={SQLite3};Database=" + in_braces_if_needed(source_.path) +
         ";Timeout=" + std::to_string(source_.busy_time) + ";SyncPragma=" + source_.synchronous +
         ";JournalMode=" + source_.journal_mode + ";FKSupport=" + number(source_.foreign_keys) +
         ";LongNames=" + number(source_.long_names) + ";NoTXN=" + number(source_.without_transactions);
}

}  // namespace tallyra::standins::ado
