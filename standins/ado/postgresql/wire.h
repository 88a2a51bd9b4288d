#pragma once

#include <libpq-fe.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "standins/ado/postgresql/connection_options.h"

namespace tallyra::standins::ado {

struct ResultDeleter {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultDeleter>;

inline bool succeeded(const Result& result) {
  const ExecStatusType status = PQresultStatus(result.get());
  return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
}

// A connection to the server. Commands are put in a row and go out together: one journey for all of them.
// When one fails the server leaves out those behind it.
class Wire {
 public:
  // Throws Error when there is no connection.
  explicit Wire(const PostgresqlOptions& options);

  // A statement as it is; one statement only.
  void add(const std::string& sql);
  // A statement of which only the shape is known yet; the types of its parameters, 0 where they follow from
  // their place.
  void add_preparation(const std::string& name, const std::string& sql, const std::vector<Oid>& types);
  void add_description(const std::string& name);
  void add_execution(const std::string& name, const std::vector<const char*>& values);

  // What became of each command, in their order, until the next exchange. Waits as long as the server takes
  // or the limit lets it, and then gives the connection up. Throws Error when the connection is, or gets,
  // lost: what became of the commands is then unknown.
  std::vector<Result>& exchange();

  // In seconds, 0 for ever: how long an exchange may take before the server counts as gone.
  void limit(std::int32_t seconds) { seconds_ = seconds; }

  bool is_lost() const;
  // What the server itself says about a transaction.
  PGTransactionStatusType transaction() const { return PQtransactionStatus(connection_.get()); }
  PGconn* connection() const { return connection_.get(); }

 private:
  struct Finisher {
    void operator()(PGconn* connection) const { PQfinish(connection); }
  };

  void require(int sent);
  void read_results();
  void replace_last(Result result);
  PGresult* next_result();
  void wait_for_input();
  [[noreturn]] void raise_loss();

  std::unique_ptr<PGconn, Finisher> connection_;
  std::vector<Result> results_;
  std::size_t commands_ = 0;
  std::int32_t seconds_ = 0;
  std::int64_t deadline_ = 0;  // milliseconds of the steady clock, while waiting
  bool given_up_ = false;
};

}  // namespace tallyra::standins::ado
