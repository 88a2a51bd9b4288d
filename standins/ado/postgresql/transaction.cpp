#include "standins/ado/postgresql/transaction.h"

#include <algorithm>
#include <utility>

#include "standins/ado/ado_error.h"
#include "standins/ado/postgresql/postgresql_error.h"
#include "standins/ado/postgresql/transaction_control.h"

namespace tallyra::standins::ado {
namespace {

using automation::Error;

// A savepoint lasts for so much: what a failure makes the server do again is bounded.
constexpr std::size_t most_repeats = 128;
constexpr std::size_t most_repeated_bytes = std::size_t{64} * 1024;

const std::string set_savepoint = "SAVEPOINT tallyra";
const std::string release_savepoint = "RELEASE SAVEPOINT tallyra";
const std::string go_to_savepoint = "ROLLBACK TO SAVEPOINT tallyra";
const std::string set_shape_savepoint = "SAVEPOINT tallyra_shape";
const std::string release_shape_savepoint = "RELEASE SAVEPOINT tallyra_shape";
const std::string go_to_shape_savepoint = "ROLLBACK TO SAVEPOINT tallyra_shape";
const std::string go_to_beginning = "ROLLBACK AND CHAIN";

bool all_succeeded(const std::vector<Result>& results) {
  return std::ranges::all_of(results, succeeded);
}

}  // namespace

StatementFailure::StatementFailure(const Result& result)
    : Error(postgresql_error(result.get())), state(state_of(result.get())) {}

void Transaction::begin() {
  if (wire_.transaction() != PQTRANS_IDLE) raise(provider_error::only_one_transaction);
  wire_.add("BEGIN");
  const Result& result = wire_.exchange().front();
  if (!succeeded(result)) throw StatementFailure(result);
  open_ = true;
  start_over(true);
}

void Transaction::commit() {
  require_usable();
  wire_.add("COMMIT");
  std::string reason;
  try {
    const Result& result = wire_.exchange().front();
    if (!succeeded(result)) {
      const StatementFailure failure(result);
      lost_ = failure.description();
      throw failure;
    }
    // A transaction in which something has failed ends so: the command is no error to the server.
    if (std::string_view(PQcmdStatus(result.get())) == "COMMIT") {
      open_ = false;
      return;
    }
    reason = "the server has rolled it back";
  } catch (const StatementFailure&) {
    throw;
  } catch (const Error& error) {
    reason = "the connection broke while it was being committed, and whether it was is unknown: " +
             std::string(error.description());
  }
  lose(reason);
}

void Transaction::rollback() {
  open_ = false;
  lost_.reset();
  ++taken_back_;
  if (wire_.is_lost() || wire_.transaction() == PQTRANS_IDLE) return;
  wire_.add("ROLLBACK");
  try {
    wire_.exchange();
  } catch (const Error&) {
    // Without its connection the server rolls back by itself.
  }
}

Result Transaction::run(const Command& command) {
  require_usable();
  if (control_of(command.sql) != Control::none) return run_control(command.sql);
  if (wire_.transaction() == PQTRANS_INTRANS) return run_protected(command);
  if (open_) lose("the server has ended it");
  return run_alone(command);
}

Result Transaction::run_alone(const Command& command) {
  start_over(false);
  add(command);
  Result result = std::move(wire_.exchange().front());
  if (!succeeded(result)) throw StatementFailure(result);
  return result;
}

Result Transaction::run_protected(const Command& command) {
  const bool starts = needs_savepoint();
  if (starts && savepoint_) wire_.add(release_savepoint);
  if (starts) wire_.add(set_savepoint);
  add(command);
  std::vector<Result>& results = exchange();
  Result result = std::move(results.back());
  results.pop_back();
  if (!all_succeeded(results)) lose("its savepoint is gone");
  if (starts) {
    start_over(true);
    savepoint_ = true;
  }
  if (!succeeded(result)) {
    const StatementFailure failure(result);
    go_back();
    throw failure;
  }
  if (open_ && wire_.transaction() != PQTRANS_INTRANS) lose("a statement has ended it");
  note(command);
  return result;
}

// The savepoint must not be in the way of those that the client sets, which it may go back behind.
Result Transaction::run_control(const std::string& sql) {
  const Control control = control_of(sql);
  if (open_ && control != Control::inner)
    throw Error(provider_error::errors_in_command,
                "A transaction that BeginTrans began is ended by CommitTrans or RollbackTrans");
  if (savepoint_ && wire_.transaction() == PQTRANS_INTRANS) wire_.add(release_savepoint);
  wire_.add(sql);
  Result result = std::move(exchange().back());
  start_over(false);
  if (control == Control::rollback || control == Control::inner) ++taken_back_;
  if (!succeeded(result)) throw StatementFailure(result);
  if (control == Control::commit && std::string_view(PQcmdStatus(result.get())) != "COMMIT")
    throw Error(provider_error::unspecified, "The server has rolled the transaction back");
  return result;
}

Result Transaction::prepare(const std::string& name, const std::string& sql, const std::vector<Oid>& types,
                            const std::string& discarded) {
  require_usable();
  const bool inside = wire_.transaction() == PQTRANS_INTRANS;
  if (inside) wire_.add(set_shape_savepoint);
  if (!discarded.empty()) wire_.add("DEALLOCATE " + discarded);
  wire_.add_preparation(name, sql, types);
  wire_.add_description(name);
  if (inside) wire_.add(release_shape_savepoint);
  std::vector<Result>& results = exchange();
  if (all_succeeded(results)) return std::move(results[results.size() - (inside ? 2 : 1)]);
  if (inside) {
    wire_.add(go_to_shape_savepoint);
    wire_.add(release_shape_savepoint);
    if (!all_succeeded(exchange())) lose("its savepoint is gone");
  }
  return {};
}

void Transaction::add(const Command& command) {
  if (command.prepared)
    wire_.add_execution(*command.prepared, *command.values);
  else
    wire_.add(command.sql);
}

// What is lost with the connection is lost for the transaction.
std::vector<Result>& Transaction::exchange() {
  try {
    return wire_.exchange();
  } catch (const Error& error) {
    if (open_) lost_ = error.description();
    throw;
  }
}

bool Transaction::needs_savepoint() const {
  return unrepeatable_ || (ran_ && !savepoint_) || repeats_.size() >= most_repeats ||
         repeated_bytes_ >= most_repeated_bytes;
}

void Transaction::note(const Command& command) {
  ran_ = true;
  switch (command.repeat) {
    case Repeat::nothing: return;
    case Repeat::unknown: unrepeatable_ = true; return;
    case Repeat::by_its_text: break;
  }
  repeats_.push_back(command.sql);
  repeated_bytes_ += command.sql.size();
}

void Transaction::go_back() {
  ++taken_back_;
  wire_.add(savepoint_ ? go_to_savepoint : go_to_beginning);
  for (const std::string& sql : repeats_) wire_.add(sql);
  if (!all_succeeded(exchange())) lose("what a failed statement took back could not be done again");
}

void Transaction::start_over(bool repeatable) {
  ran_ = false;
  savepoint_ = false;
  unrepeatable_ = !repeatable;
  repeats_.clear();
  repeated_bytes_ = 0;
}

void Transaction::require_usable() const {
  if (lost_) throw Error(provider_error::unspecified, "The transaction is lost: " + *lost_);
}

void Transaction::lose(const std::string& reason) {
  lost_ = reason;
  throw Error(provider_error::unspecified, "The transaction is lost: " + reason);
}

}  // namespace tallyra::standins::ado
