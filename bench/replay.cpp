#include "bench/replay.h"

#include <map>
#include <stdexcept>

#include "bench/statement_log.h"

namespace tallyra::bench {
namespace {

using standins::ado::Operation;

// A statement that failed for the component fails for its replay too, which goes on as the component did.
void run(ReplayConnection& connection, LoggedOperation& logged) {
  try {
    connection.run(logged.text, logged.operation == Operation::query);
  } catch (const std::runtime_error& error) {
    if (logged.succeeded) throw std::runtime_error(std::string(error.what()) + ": " + logged.text);
  }
}

void repeat(ReplayConnection& connection, LoggedOperation& logged) {
  switch (logged.operation) {
    case Operation::execute:
    case Operation::query: run(connection, logged); break;
    case Operation::begin: connection.begin(); break;
    case Operation::commit: connection.commit(); break;
    case Operation::rollback: connection.roll_back(); break;
    case Operation::connect:
    case Operation::disconnect: break;
  }
}

bool is_statement(Operation operation) {
  return operation == Operation::execute || operation == Operation::query;
}

}  // namespace

std::uint64_t replay(const std::string& log_path, const Connect& connect) {
  std::map<std::uint32_t, std::unique_ptr<ReplayConnection>> connections;
  StatementReader log(log_path);
  LoggedOperation logged;
  std::uint64_t statements = 0;
  while (log.next(logged)) {
    if (logged.operation == Operation::connect) {
      if (logged.succeeded) connections[logged.connection] = connect(logged.text);
    } else if (logged.operation == Operation::disconnect) {
      connections.erase(logged.connection);
    } else {
      repeat(*connections.at(logged.connection), logged);
      if (is_statement(logged.operation)) ++statements;
    }
  }
  return statements;
}

}  // namespace tallyra::bench
