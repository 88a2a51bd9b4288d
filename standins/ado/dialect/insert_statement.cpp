#include "standins/ado/dialect/insert_statement.h"

#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {
namespace {

// SQLite's own default for a table.
constexpr std::size_t most_columns = 2000;

}  // namespace

void read_insert(const Tokens& tokens, std::size_t first, DateColumnCache& columns, InsertStatement& insert) {
  insert.dates.clear();
  insert.end = 0;
  if (tokens[first + 1].keyword != Keyword::into) return;
  std::size_t i = first + 2;
  if (!tokens.is_name(i)) return;
  while (tokens[i + 1].kind == TokenKind::dot && tokens.is_name(i + 2)) i += 2;
  const std::string_view table = tokens.name(i);
  if (tokens[++i].kind != TokenKind::open) return;
  do {
    ++i;
    if (!tokens.is_name(i) || insert.dates.size() == most_columns) return;
    insert.dates.push_back(columns.is_date(table, tokens.name(i)));
    ++i;
  } while (tokens[i].kind == TokenKind::comma);
  if (tokens[i].kind == TokenKind::close) insert.end = i + 1;
}

}  // namespace tallyra::standins::ado::dialect
