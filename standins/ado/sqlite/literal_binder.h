#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/date_literal.h"
#include "standins/ado/dialect/literal_scan.h"
#include "standins/ado/sqlite/prepared_forms.h"
#include "standins/ado/sqlite/sqlite_handle.h"

namespace tallyra::standins::ado {

// Gives a prepared statement the values that a text spells out, the same that the library would have read
// from the text, of the same storage class.
class LiteralBinder {
 public:
  // The connection must outlive it.
  explicit LiteralBinder(sqlite3* database) : database_(database) {}

  // What is bound points into `sql` and into this object: it is good until the next call, while `sql` lives.
  // False when a value is none that can be given apart, such as an integer beyond 64 bits. Throws Error for a
  // text that meets a date column and is no date.
  bool bind(const PreparedForm& prepared, std::string_view sql,
            const std::vector<dialect::Literal>& literals);

 private:
  bool bind_one(sqlite3_stmt* statement, int number, std::string_view text, dialect::Literal::Kind kind,
                dialect::LiteralUse::Text use);
  bool bind_text(sqlite3_stmt* statement, int number, std::string_view text, dialect::LiteralUse::Text use);
  bool bind_date(sqlite3_stmt* statement, int number, const dialect::DateTime& date);
  bool bind_real(sqlite3_stmt* statement, int number, std::string_view text);
  double as_library_reads(std::string_view digits);

  sqlite3* database_;
  StatementHandle reader_;  // of real numbers
  std::string scratch_;     // values that are not in the text as they are bound; does not move while bound
};

}  // namespace tallyra::standins::ado
