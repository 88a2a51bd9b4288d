#pragma once

#include "standins/ado/dialect/statement_guard.h"

namespace tallyra::standins::ado::dialect {

// How far a text would reach if PostgreSQL got it, directly or through its ODBC driver: commands that read or
// write the server's files, run programs or code, open other connections, or change who and how the session
// is, reach beyond. Needs time linear in the length of the text.
Verdict judge_for_postgresql(const Tokens& tokens);

}  // namespace tallyra::standins::ado::dialect
