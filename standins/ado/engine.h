#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "standins/ado/row_set.h"

namespace tallyra::standins::ado {

// What a statement leaves.
struct StatementResult {
  std::unique_ptr<RowSet> rows;     // none when the statement has no rowset
  std::int64_t affected_rows = -1;  // -1 when there are rows, or unknown, or not asked for
};

// What an engine can be asked about itself and about what the connection leads to.
enum class Information : std::uint8_t {
  current_catalog,
  data_source_name,
  dbms_name,
  dbms_version,
  driver_name,
  driver_version,
  server_name,
  user_name,
};

// A connected session of one engine: all that ADO's objects know of it. Results are read whole when a
// statement has run, so that any number of recordsets may be open meanwhile. Every failure is an Error with
// the number that a client of a provider would see and the engine's own sentence. Destroyed in a transaction,
// it discards what the transaction did. Used by one thread at a time; not bound to a thread.
//
// A session tells the trace sink of what it does, in the order in which the engine sees it (SessionTrace).
class EngineSession {
 public:
  EngineSession() = default;
  EngineSession(const EngineSession&) = delete;
  EngineSession& operator=(const EngineSession&) = delete;
  virtual ~EngineSession() = default;

  // Runs one statement in the words that the component uses, UTF-8. A failed statement leaves an open
  // transaction with all that has been done in it.
  virtual StatementResult run(std::string_view sql, bool count_affected) = 0;

  // How long a statement may take, 0 for ever. An engine without such a limit ignores it.
  virtual void limit_statements(std::int32_t seconds) = 0;

  // Empty when the engine says nothing about it.
  virtual std::string information(Information kind) const = 0;
  // The connection string with everything that the engine has added from its defaults. May hold passwords.
  virtual std::string completed_string() const = 0;

  virtual bool in_transaction() const = 0;
  // Must not be in a transaction.
  virtual void begin() = 0;
  // Must be in a transaction. Returns only when the engine has made the commit; the transaction stays open
  // when it could not and a repeat makes sense.
  virtual void commit() = 0;
  // Must be in a transaction. There is none afterwards, whatever happens.
  virtual void rollback() = 0;
};

}  // namespace tallyra::standins::ado
