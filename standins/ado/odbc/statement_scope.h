#pragma once

#include "standins/ado/odbc/odbc_api.h"

namespace tallyra::standins::ado {

// At its end a statement handle has neither an open result nor bound columns and can be used again.
class StatementScope {
 public:
  explicit StatementScope(SQLHSTMT statement) : statement_(statement) {}
  ~StatementScope() {
    SQLFreeStmt(statement_, SQL_CLOSE);
    SQLFreeStmt(statement_, SQL_UNBIND);
  }
  StatementScope(const StatementScope&) = delete;
  StatementScope& operator=(const StatementScope&) = delete;

 private:
  SQLHSTMT statement_;
};

}  // namespace tallyra::standins::ado
