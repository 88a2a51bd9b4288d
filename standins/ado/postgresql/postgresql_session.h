#pragma once

#include <optional>
#include <string>

#include "standins/ado/dialect/postgresql_dialect.h"
#include "standins/ado/engine.h"
#include "standins/ado/postgresql/connection_options.h"
#include "standins/ado/postgresql/date_column_list.h"
#include "standins/ado/postgresql/shape_cache.h"
#include "standins/ado/postgresql/transaction.h"
#include "standins/ado/postgresql/wire.h"
#include "standins/ado/session_trace.h"

namespace tallyra::standins::ado {

// A session with a PostgreSQL server, through its own library. Statements of one shape are prepared once on
// the server.
class PostgresqlSession : public EngineSession {
 public:
  // Throws Error when the connection cannot be made.
  explicit PostgresqlSession(const ConnectionSource& source);
  ~PostgresqlSession() override;

  StatementResult run(std::string_view sql, bool count_affected) override;
  void limit_statements(std::int32_t seconds) override;
  std::string information(Information kind) const override;
  std::string completed_string() const override { return options_.completed_string; }
  bool in_transaction() const override { return transaction_.is_open(); }
  void begin() override;
  void commit() override;
  void rollback() override;

 private:
  Result execute();
  Result execute_shape(ShapeCache::Entry& entry);
  // The entry of a shape that the server has, or is now given; null when the text goes as it is.
  ShapeCache::Entry* prepared();
  void prepare(ShapeCache::Entry& entry, const std::string& discarded);
  void require_plain_texts() const;
  void send_limit();
  StatementResult statement_result(const Result& result, bool count_affected);
  void forget_schema();
  void forget_shapes();

  const SessionTrace trace_;
  const PostgresqlOptions options_;
  Wire wire_;
  Transaction transaction_;
  DateColumnList date_columns_;
  dialect::PostgresqlDialect dialect_;
  Shape shape_;
  ShapeCache shapes_;
  std::string text_;                  // the statement in the engine's words
  bool schema_changed_here_ = false;  // in the transaction
  bool shapes_doubtful_ = false;      // what they were prepared for was taken back
  std::optional<std::int32_t> limit_;
  std::optional<unsigned> limit_sent_;  // as long as so much was taken back
};

}  // namespace tallyra::standins::ado
