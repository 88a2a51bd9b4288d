#include "standins/ado/postgresql/date_column_list.h"

#include "automation/folded_name.h"

namespace tallyra::standins::ado {
namespace {

// The types are those of dates and of dates with a time of day, also as what a domain is made of.
const std::string query =
    "SELECT c.relname, a.attname FROM pg_catalog.pg_class c JOIN pg_catalog.pg_attribute a ON "
    "a.attrelid=c.oid "
    "JOIN pg_catalog.pg_type t ON t.oid=a.atttypid WHERE c.relkind IN ('r','p','v','m','f') AND "
    "c.relnamespace=ANY(pg_catalog.current_schemas(false)::pg_catalog.regnamespace[]) AND "
    "pg_catalog.pg_table_is_visible(c.oid) AND a.attnum>0 AND NOT a.attisdropped AND "
    "(t.oid IN (1082,1114) OR t.typbasetype IN (1082,1114))";

std::string key_of(std::string_view table, std::string_view column) {
  return automation::folded(table) + '.' + automation::folded(column);
}

}  // namespace

bool DateColumnList::is_date(std::string_view table, std::string_view column) {
  know();
  return columns_.contains(key_of(table, column));
}

void DateColumnList::know() {
  if (known_) return;
  const Result rows = read_(query);
  columns_.clear();
  for (int row = 0; row < PQntuples(rows.get()); ++row)
    columns_.insert(key_of(PQgetvalue(rows.get(), row, 0), PQgetvalue(rows.get(), row, 1)));
  known_ = true;
}

}  // namespace tallyra::standins::ado
