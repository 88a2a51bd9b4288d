#include "standins/ado/sqlite/sqlite_session.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "automation/error.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/dialect/characters.h"
#include "standins/ado/dialect/tokenizer.h"
#include "standins/ado/sqlite/sqlite_error.h"
#include "standins/ado/sqlite/sqlite_rows.h"
#include "standins/ado/translation.h"

namespace tallyra::standins::ado {
namespace {

// There is nobody to give them values. In the words of the ODBC driver, which knows question marks alone.
void refuse_parameters(sqlite3_stmt* statement) {
  const int count = sqlite3_bind_parameter_count(statement);
  if (count == 0) return;
  for (int number = 1; number <= count; ++number)
    if (const char* const name = sqlite3_bind_parameter_name(statement, number); !name || *name == '?')
      throw automation::Error(provider_error::parameter_missing, "unbound parameters in query");
  throw automation::Error(provider_error::errors_in_command, "parameter marker count incorrect");
}

// A client's own, which leaves nothing to be committed.
bool is_commit(std::string_view sql) {
  sql.remove_prefix(dialect::skip_between_tokens(sql, 0));
  const std::string_view verb(sql.begin(), std::ranges::find_if_not(sql, dialect::is_name_byte));
  return dialect::same_name(verb, "commit") || dialect::same_name(verb, "end");
}

}  // namespace

SqliteSession::SqliteSession(SqliteSource source)
    : source_(std::move(source)),
      trace_("sqlite"),
      database_(open_sqlite(source_)),
      date_columns_(database_.get()),
      dialect_(date_columns_),
      binder_(database_.get()) {
  trace_(Operation::connect, source_.odbc_string, 0, true);
}

SqliteSession::~SqliteSession() {
  // The library takes back by itself what a connection that goes has not committed.
  if (in_transaction_) trace_(Operation::rollback, {}, 0, true);
  trace_(Operation::disconnect, {}, 0, true);
}

StatementResult SqliteSession::run(std::string_view sql, bool count_affected) {
  refuse_nul(sql);
  open_transaction();
  notice_other_schema();
  knows_schema_ = true;
  if (const PreparedForm prepared = prepare_form(sql))
    return run_form(prepared.statement, sql, count_affected);
  return run_text(sql, count_affected);
}

PreparedForm SqliteSession::prepare_form(std::string_view sql) {
  if (!scan_literals(sql, form_)) return {};
  PreparedForm prepared = prepared_.find(form_, sql);
  if (!prepared) prepared = compile_form(sql);
  if (prepared && !binder_.bind(prepared, sql, form_.literals)) return {};
  return prepared;
}

// What does not compile is left to be refused as the text it is.
PreparedForm SqliteSession::compile_form(std::string_view sql) {
  const std::string_view text = translated_form(dialect_, sql, form_.literals, uses_);
  StatementHandle statement = prepare_sqlite(database_.get(), text, SQLITE_PREPARE_PERSISTENT);
  if (!statement) {
    // The text would wait as long once more.
    if ((sqlite3_errcode(database_.get()) & 0xFF) == SQLITE_BUSY) fail(text);
    return {};
  }
  ++compiled_forms_;
  return prepared_.add(form_, sql, uses_, std::move(statement));
}

StatementResult SqliteSession::run_form(sqlite3_stmt* statement, std::string_view sql, bool count_affected) {
  // Who listens hears the text with its values.
  return step(statement, SessionTrace::is_on() ? dialect_.rewrite(sql) : sql, count_affected);
}

StatementResult SqliteSession::run_text(std::string_view sql, bool count_affected) {
  const std::string_view text = translated(dialect_, sql);
  const StatementHandle statement = prepare_sqlite(database_.get(), text, 0);
  if (!statement) {
    if (sqlite3_errcode(database_.get()) != SQLITE_OK) fail(text);
    trace_(Operation::execute, text, 0, true);  // nothing but blanks and comments
    return {.rows = nullptr, .affected_rows = count_affected ? 0 : -1};
  }
  refuse_parameters(statement.get());
  const bool changes_schema = dialect_.changes_schema();
  StatementResult result = step(statement.get(), text, count_affected);
  if (changes_schema) {
    // A ROLLBACK as a text: what a commit would report as done is gone.
    if (transaction_open_ && sqlite3_get_autocommit(database_.get()) != 0) transaction_lost_ = true;
    schema_changed_here_ = in_transaction_;
    forget_schema();
  }
  if (transaction_open_ && is_commit(text) && sqlite3_get_autocommit(database_.get()) != 0)
    transaction_open_ = false;
  return result;
}

StatementResult SqliteSession::step(sqlite3_stmt* statement, std::string_view text, bool count_affected) {
  const StatementRun run(statement);
  const std::int64_t changed_before = sqlite3_total_changes64(database_.get());
  StatementResult result;
  int code = sqlite3_step(statement);
  // Known behind the first step: until then another connection may have changed the table.
  const bool has_columns = sqlite3_column_count(statement) > 0;
  if (has_columns) result.rows = read_sqlite_rows(statement, code, source_.long_names);
  if (code != SQLITE_DONE) fail(text);
  if (has_columns) {
    trace_(Operation::query, text, result.rows->row_count(), true);
    return result;
  }
  if (count_affected)
    result.affected_rows =
        sqlite3_total_changes64(database_.get()) == changed_before ? 0 : sqlite3_changes64(database_.get());
  trace_(Operation::execute, text, 0, true);
  return result;
}

void SqliteSession::fail(std::string_view text) {
  const automation::Error error = sqlite_error(database_.get());
  // A full disk, for one, ends the whole transaction.
  if (transaction_open_ && sqlite3_get_autocommit(database_.get()) != 0) transaction_lost_ = true;
  trace_(Operation::execute, text, 0, false);
  throw error;
}

}  // namespace tallyra::standins::ado
