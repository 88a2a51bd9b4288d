#pragma once

#include <sqlite3.h>

#include <memory>

namespace tallyra::standins::ado {

struct DatabaseCloser {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
// Its statements must have gone before.
using DatabaseHandle = std::unique_ptr<sqlite3, DatabaseCloser>;

struct StatementFinalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

// At its end the statement has no open result and can be run again.
class StatementRun {
 public:
  explicit StatementRun(sqlite3_stmt* statement) : statement_(statement) {}
  ~StatementRun() { sqlite3_reset(statement_); }
  StatementRun(const StatementRun&) = delete;
  StatementRun& operator=(const StatementRun&) = delete;

 private:
  sqlite3_stmt* statement_;
};

}  // namespace tallyra::standins::ado
