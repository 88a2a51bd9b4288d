#include "standins/ado/postgresql/shape_scanner.h"

#include <algorithm>
#include <array>

#include "automation/folded_name.h"
#include "standins/ado/postgresql/shape_characters.h"

namespace tallyra::standins::ado {
namespace {

using automation::equals_folded;
using automation::is_one_of;

constexpr std::size_t most_literals = 512;

// Words before a parenthesis, and functions, that change nothing.
constexpr auto harmless_before_parenthesis = std::to_array<std::string_view>(
    {"from",  "where", "and",   "or",    "not",   "in",     "on",    "join", "select", "as",    "exists",
     "array", "any",   "all",   "sum",   "count", "min",    "max",   "avg",  "abs",    "round", "coalesce",
     "upper", "lower", "ltrim", "rtrim", "trim",  "length", "union", "then", "when",   "else",  "by"});

}  // namespace

bool ShapeScanner::scan() {
  while ((here_ = skip_blanks(here_)) < sql_.size()) {
    const char c = sql_[here_];
    bool understood = true;
    if (c == '\'')
      understood = text();
    else if (c == '"')
      understood = name();
    else if (is_digit(c) || ((c == '-' || c == '.') && is_digit(at(here_ + 1))))
      understood = number();
    else if (is_name_byte(c))
      understood = word();
    else if (c == '=' || c == '<' || c == '>' || c == '!')
      understood = comparison();
    else
      understood = punctuation();
    if (!understood || shape_.kinds_.size() > most_literals) return false;
  }
  leave(sql_.size());
  return depth_ == 0;
}

Repeat ShapeScanner::repeat() const {
  if (verb_ == Verb::insert && rows_ == 1 && plain_) return Repeat::by_its_text;
  return verb_ == Verb::select && pure_ ? Repeat::nothing : Repeat::unknown;
}

std::size_t ShapeScanner::skip_blanks(std::size_t from) const {
  while (from < sql_.size() && is_blank(sql_[from])) ++from;
  return from;
}

bool ShapeScanner::word() {
  const std::size_t begin = here_;
  while (here_ < sql_.size() && is_name_byte(sql_[here_])) ++here_;
  if (at(here_) == '$' || at(here_) == '\'') return false;
  follow_word(sql_.substr(begin, here_ - begin));
  before_ = Before::name;
  return true;
}

void ShapeScanner::follow_word(std::string_view word) {
  if (first_word_) {
    first_word_ = false;
    if (equals_folded(word, "insert")) verb_ = Verb::insert;
    if (equals_folded(word, "select")) verb_ = Verb::select;
    if (equals_folded(word, "update")) verb_ = Verb::update;
    if (equals_folded(word, "delete")) verb_ = Verb::delete_;
    return;
  }
  if (in_values_ && !equals_folded(word, "null")) plain_ = false;
  if (equals_folded(word, "values") && verb_ == Verb::insert && depth_ == 0) in_values_ = true;
  if (equals_folded(word, "group")) groups_ = true;
  if (equals_folded(word, "into") || equals_folded(word, "for")) pure_ = false;
  if (at(skip_blanks(here_)) == '(' && !is_one_of(harmless_before_parenthesis, word)) pure_ = false;
}

bool ShapeScanner::name() {
  const std::size_t quote = sql_.find('"', here_ + 1);
  if (quote == std::string_view::npos) return false;
  here_ = quote + 1;
  if (at(skip_blanks(here_)) == '(') pure_ = false;
  before_ = Before::name;
  return true;
}

// A comparison of a column: its other side is a value. The limits of a range stay in a query: how much lies
// between them decides how it is read, and the server must know them to choose.
bool ShapeScanner::comparison() {
  const bool of_column = before_ == Before::name && !in_values_;
  const std::size_t begin = here_;
  while (here_ < sql_.size() &&
         (sql_[here_] == '=' || sql_[here_] == '<' || sql_[here_] == '>' || sql_[here_] == '!'))
    ++here_;
  const std::string_view sign = sql_.substr(begin, here_ - begin);
  constexpr auto signs = std::to_array<std::string_view>({"=", "<", ">", "<=", ">=", "<>", "!="});
  const bool range_of_query = verb_ == Verb::select && sign != "=";
  before_ = of_column && !range_of_query && is_one_of(signs, sign) ? Before::comparison : Before::other;
  plain_ = plain_ && !in_values_;
  return true;
}

bool ShapeScanner::punctuation() {
  const char c = sql_[here_];
  const char next = at(here_ + 1);
  if ((c == '-' && next == '-') || (c == '/' && next == '*')) return false;
  before_ = Before::other;
  switch (c) {
    case '(':
      ++depth_;
      if (in_values_) {
        if (depth_ == 1) ++rows_;
        plain_ = plain_ && depth_ == 1;
        if (depth_ == 1) before_ = Before::value_place;
      }
      break;
    case ')':
      --depth_;
      if (depth_ < 0) return false;
      before_ = Before::name;  // an operand
      break;
    case ',':
      if (in_values_ && depth_ == 1) before_ = Before::value_place;
      break;
    case '.': break;
    case '*':
    case '+':
    case '-':
    case '/':
    case '%':
    case '|': plain_ = plain_ && !in_values_; break;
    default: return false;
  }
  ++here_;
  return true;
}

}  // namespace tallyra::standins::ado
