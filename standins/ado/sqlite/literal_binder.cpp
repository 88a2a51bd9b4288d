#include "standins/ado/sqlite/literal_binder.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "standins/ado/dialect/date_literal.h"
#include "standins/ado/sqlite/sqlite_database.h"
#include "standins/ado/sqlite/sqlite_error.h"
#include "standins/ado/translation.h"

namespace tallyra::standins::ado {
namespace {

using dialect::Literal;
using dialect::LiteralUse;

std::string_view inside(std::string_view literal) {
  return literal.substr(1, literal.size() - 2);
}

}  // namespace

bool LiteralBinder::bind(const PreparedForm& prepared, std::string_view sql,
                         const std::vector<Literal>& literals) {
  scratch_.clear();
  scratch_.reserve(sql.size() + literals.size() * dialect::written_date_length);
  int number = 0;
  for (std::size_t i = 0; i < literals.size(); ++i) {
    const Literal& literal = literals[i];
    const LiteralUse& use = (*prepared.uses)[i];
    if (!can_be_apart(literal.kind, use)) continue;
    const std::string_view text = sql.substr(literal.begin, literal.end - literal.begin);
    if (!bind_one(prepared.statement, ++number, text, literal.kind, use.text)) return false;
  }
  return number == sqlite3_bind_parameter_count(prepared.statement);
}

bool LiteralBinder::bind_one(sqlite3_stmt* statement, int number, std::string_view text, Literal::Kind kind,
                             LiteralUse::Text use) {
  switch (kind) {
    case Literal::Kind::text: return bind_text(statement, number, text, use);
    case Literal::Kind::date: return bind_date(statement, number, *dialect::read_date(inside(text)));
    case Literal::Kind::null: return sqlite3_bind_null(statement, number) == SQLITE_OK;
    case Literal::Kind::real: return bind_real(statement, number, text);
    case Literal::Kind::integer: break;
  }
  std::int64_t value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && sqlite3_bind_int64(statement, number, value) == SQLITE_OK;
}

bool LiteralBinder::bind_text(sqlite3_stmt* statement, int number, std::string_view text,
                              LiteralUse::Text use) {
  std::string_view content = inside(text);
  if (use == LiteralUse::Text::date) {
    const auto date = dialect::read_quoted_date(content);
    if (!date) refuse_as_date(text);
    return bind_date(statement, number, *date);
  }
  if (auto quote = content.find('\''); quote != std::string_view::npos) {
    const std::size_t begin = scratch_.size();
    for (; quote != std::string_view::npos; quote = content.find('\'')) {
      scratch_.append(content, 0, quote + 1);
      content.remove_prefix(quote + 2);
    }
    scratch_.append(content);
    content = std::string_view(scratch_).substr(begin);
  }
  return sqlite3_bind_text64(statement, number, content.data(), content.size(), SQLITE_STATIC, SQLITE_UTF8) ==
         SQLITE_OK;
}

bool LiteralBinder::bind_date(sqlite3_stmt* statement, int number, const dialect::DateTime& date) {
  const std::size_t begin = scratch_.size();
  scratch_.resize(begin + dialect::written_date_length);
  dialect::write_date(date, scratch_.data() + begin);
  const std::string_view content = inside(std::string_view(scratch_).substr(begin));
  return sqlite3_bind_text64(statement, number, content.data(), content.size(), SQLITE_STATIC, SQLITE_UTF8) ==
         SQLITE_OK;
}

// The library reads the digits and turns the sign afterwards.
bool LiteralBinder::bind_real(sqlite3_stmt* statement, int number, std::string_view text) {
  const bool negative = text.front() == '-';
  if (negative) text.remove_prefix(1);
  const double value = as_library_reads(text);
  return sqlite3_bind_double(statement, number, negative ? -value : value) == SQLITE_OK;
}

// It reads some numbers of many digits otherwise than the language does, by a unit in the last place.
double LiteralBinder::as_library_reads(std::string_view digits) {
  if (!reader_) reader_ = prepare_sqlite(database_, "SELECT ?", SQLITE_PREPARE_PERSISTENT);
  if (!reader_) throw sqlite_error(database_);
  const StatementRun run(reader_.get());
  sqlite3_bind_text64(reader_.get(), 1, digits.data(), digits.size(), SQLITE_STATIC, SQLITE_UTF8);
  require_sqlite(database_, sqlite3_step(reader_.get()));
  return sqlite3_column_double(reader_.get(), 0);
}

}  // namespace tallyra::standins::ado
