#include "standins/ado/postgresql/date_column_list.h"

#include "automation/folded_name.h"

namespace tallyra::standins::ado {
namespace {

// The types are those of dates and of dates with a time of day, also as what a domain is made of. Every
// connection asks anew, and to one that has just been made a query of one catalogue costs half of what joined
// ones do. Columns of indexes are told too; nobody asks about them.
const std::string query =
    "SELECT a.attrelid::pg_catalog.regclass, a.attname FROM pg_catalog.pg_attribute a WHERE a.attnum>0 AND "
    "(a.atttypid IN (1082,1114) OR a.atttypid IN (SELECT t.oid FROM pg_catalog.pg_type t WHERE "
    "t.typbasetype IN (1082,1114)))";

// The server writes a name in quotes where it needs them, and with its schema where the bare name would not
// lead to it: nothing is left of such a one.
std::string bare_name(std::string_view written) {
  const auto npos = std::string_view::npos;
  if (!written.starts_with('"')) return written.find('.') == npos ? std::string(written) : std::string();
  std::string name;
  for (std::size_t at = 1; at < written.size(); ++at) {
    if (written[at] == '"' && !written.substr(at + 1).starts_with('"'))
      return at + 1 == written.size() ? name : std::string();
    if (written[at] == '"') ++at;
    name += written[at];
  }
  return {};
}

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
    if (const std::string table = bare_name(PQgetvalue(rows.get(), row, 0)); !table.empty())
      columns_.insert(key_of(table, PQgetvalue(rows.get(), row, 1)));
  known_ = true;
}

}  // namespace tallyra::standins::ado
