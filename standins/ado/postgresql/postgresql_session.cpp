#include "standins/ado/postgresql/postgresql_session.h"

#include <charconv>
#include <utility>

#include "standins/ado/ado_error.h"
#include "standins/ado/postgresql/postgresql_error.h"
#include "standins/ado/postgresql/result_reader.h"
#include "standins/ado/translation.h"

namespace tallyra::standins::ado {
namespace {

std::string text_or_nothing(const char* text) {
  return text ? text : std::string();
}

// As a driver writes a version, 15.0.18.
std::string dotted(int version) {
  return std::to_string(version / 10000) + ".0." + std::to_string(version % 10000);
}

// The server has no such statement, or its result has other columns by now.
bool is_stale(std::string_view state) {
  return state == "26000" || state == "0A000";
}

}  // namespace

PostgresqlSession::PostgresqlSession(const ConnectionSource& source)
    : trace_("postgresql"),
      options_(read_postgresql_options(source)),
      wire_(options_),
      transaction_(wire_),
      date_columns_([this](const std::string& sql) {
        return transaction_.run({sql, Repeat::nothing});
      }),
      dialect_(date_columns_) {
  require_plain_texts();
  trace_(Operation::connect, source.odbc_string, 0, true);
}

PostgresqlSession::~PostgresqlSession() {
  if (in_transaction() || wire_.transaction() == PQTRANS_INTRANS) {
    transaction_.rollback();
    trace_(Operation::rollback, {}, 0, true);
  }
  trace_(Operation::disconnect, {}, 0, true);
}

// With escapes in texts a text would end elsewhere than this layer believes. The server has told the setting
// by itself, with what it answered last.
void PostgresqlSession::require_plain_texts() const {
  const char* const setting = PQparameterStatus(wire_.connection(), "standard_conforming_strings");
  if (setting == nullptr || std::string_view(setting) != "on")
    throw automation::Error(provider_error::unspecified,
                            "The server takes a backslash in a text for an escape");
}

std::string PostgresqlSession::information(Information kind) const {
  PGconn* const connection = wire_.connection();
  switch (kind) {
    case Information::current_catalog: return text_or_nothing(PQdb(connection));
    case Information::data_source_name: break;
    case Information::dbms_name: return "PostgreSQL";
    case Information::dbms_version: return dotted(PQserverVersion(connection));
    case Information::driver_name: return "libpq";
    case Information::driver_version: return dotted(PQlibVersion());
    case Information::server_name: return text_or_nothing(PQhost(connection));
    case Information::user_name: return text_or_nothing(PQuser(connection));
  }
  return {};
}

StatementResult PostgresqlSession::run(std::string_view sql, bool count_affected) {
  refuse_nul(sql);
  require_plain_texts();
  text_ = translated(dialect_, sql);
  send_limit();
  Result result;
  try {
    result = execute();
  } catch (const automation::Error&) {
    trace_(Operation::execute, text_, 0, false);
    throw;
  }
  return statement_result(result, count_affected);
}

StatementResult PostgresqlSession::statement_result(const Result& result, bool count_affected) {
  StatementResult told;
  if (PQresultStatus(result.get()) == PGRES_TUPLES_OK && PQnfields(result.get()) > 0) {
    told.rows = read_rows(result.get());
    trace_(Operation::query, text_, told.rows->row_count(), true);
    return told;
  }
  if (count_affected) {
    const std::string_view count = PQcmdTuples(result.get());
    std::from_chars(count.data(), count.data() + count.size(), told.affected_rows);
  }
  trace_(Operation::execute, text_, 0, true);
  if (dialect_.changes_schema()) {
    schema_changed_here_ = in_transaction();
    forget_schema();
    forget_shapes();
  }
  return told;
}

Result PostgresqlSession::execute() {
  if (shapes_doubtful_) forget_shapes();
  const bool shaped = shape_.read(text_);
  if (ShapeCache::Entry* const entry = shaped ? prepared() : nullptr) return execute_shape(*entry);
  return transaction_.run({text_, shape_.repeat()});
}

Result PostgresqlSession::execute_shape(ShapeCache::Entry& entry) {
  try {
    return transaction_.run({text_, shape_.repeat(), &entry.name, &shape_.values()});
  } catch (const StatementFailure& failure) {
    if (!is_stale(failure.state)) throw;
    entry.usable = false;
  }
  return transaction_.run({text_, shape_.repeat()});
}

ShapeCache::Entry* PostgresqlSession::prepared() {
  ShapeCache::Entry* entry = shapes_.find(shape_);
  if (entry == nullptr) {
    if (!shapes_.comes_again(shape_)) return nullptr;
    std::string discarded;
    entry = &shapes_.add(shape_, discarded);
    prepare(*entry, discarded);
  }
  return entry->usable ? entry : nullptr;
}

// The server finds out by itself which types the places want; where a number's own type says something else
// than that, the number keeps it.
void PostgresqlSession::prepare(ShapeCache::Entry& entry, const std::string& discarded) {
  std::vector<Oid> types(shape_.kinds().size(), 0);
  std::string forget = discarded;
  for (int attempt = 1; attempt <= 2 && !entry.usable; ++attempt) {
    const Result described = transaction_.prepare(entry.name, shape_.text(), types, forget);
    if (!described) return;
    entry.usable = true;
    forget = entry.name;
    for (std::size_t i = 0; i < types.size(); ++i) {
      const LiteralKind kind = shape_.kinds()[i];
      const Oid type = PQparamtype(described.get(), static_cast<int>(i));
      if (types[i] != 0 || means_the_same(kind, type)) continue;
      types[i] = own_type(kind);
      entry.usable = false;
    }
  }
}

void PostgresqlSession::limit_statements(std::int32_t seconds) {
  limit_ = seconds;
  limit_sent_.reset();
  wire_.limit(seconds);
}

void PostgresqlSession::send_limit() {
  if (!limit_ || limit_sent_ == transaction_.taken_back()) return;
  transaction_.run(
      {"SET statement_timeout=" + std::to_string(std::int64_t{*limit_} * 1000), Repeat::nothing});
  limit_sent_ = transaction_.taken_back();
}

// Known before the transaction, so that looking it up is no part of it.
void PostgresqlSession::begin() {
  try {
    date_columns_.know();
    transaction_.begin();
    schema_changed_here_ = false;
  } catch (const automation::Error&) {
    trace_(Operation::begin, {}, 0, false);
    throw;
  }
  trace_(Operation::begin, {}, 0, true);
}

void PostgresqlSession::commit() {
  try {
    transaction_.commit();
  } catch (const automation::Error&) {
    trace_(Operation::commit, {}, 0, false);
    throw;
  }
  trace_(Operation::commit, {}, 0, true);
}

void PostgresqlSession::rollback() {
  transaction_.rollback();
  trace_(Operation::rollback, {}, 0, true);
  forget_schema();
  if (schema_changed_here_) shapes_doubtful_ = true;
}

// A place may want another type now.
void PostgresqlSession::forget_shapes() {
  shapes_doubtful_ = false;
  if (shapes_.clear()) transaction_.run({"DEALLOCATE ALL", Repeat::nothing});
}

void PostgresqlSession::forget_schema() {
  date_columns_.forget();
  dialect_.forget();
}

}  // namespace tallyra::standins::ado
