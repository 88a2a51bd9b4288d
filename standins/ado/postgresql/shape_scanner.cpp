#include "standins/ado/postgresql/shape_scanner.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "automation/folded_name.h"

namespace tallyra::standins::ado {
namespace {

using automation::equals_folded;

constexpr std::size_t most_literals = 512;
constexpr std::size_t most_digits = 9;

constexpr auto name_byte = [] {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c)
    table[static_cast<std::size_t>(c)] =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 0x80;
  return table;
}();

bool is_name_byte(char c) {
  return name_byte[static_cast<unsigned char>(c)];
}
bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

template <std::size_t N>
bool is_one_of(const std::array<std::string_view, N>& words, std::string_view word) {
  return std::ranges::any_of(words, [&](std::string_view entry) { return equals_folded(entry, word); });
}

// Behind them a comparison has its whole right side.
constexpr auto words_behind_value =
    std::to_array<std::string_view>({"and", "or", "where", "order", "limit", "group"});
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

// Copies what stands before `begin`.
void ShapeScanner::leave(std::size_t begin) {
  shape_.text_.append(sql_, copied_, begin - copied_);
  copied_ = begin;
}

// The literal from `begin` to here, whose value lies at the end of the data, becomes a parameter.
void ShapeScanner::bind(std::size_t begin, LiteralKind kind) {
  leave(begin);
  copied_ = here_;
  shape_.kinds_.push_back(kind);
  std::array<char, 16> number{};
  const auto end = std::to_chars(number.data(), number.data() + number.size(), shape_.kinds_.size()).ptr;
  shape_.text_.append(1, '$').append(number.data(), end);
  before_ = Before::other;
}

bool ShapeScanner::is_value_place() const {
  return before_ == Before::comparison || before_ == Before::value_place;
}

bool ShapeScanner::ends_value(std::size_t from) const {
  from = skip_blanks(from);
  const char c = at(from);
  if (in_values_) return c == ',' || c == ')';
  if (from == sql_.size() || c == ',' || c == ')') return true;
  std::size_t end = from;
  while (end < sql_.size() && is_name_byte(sql_[end])) ++end;
  return is_one_of(words_behind_value, sql_.substr(from, end - from));
}

bool ShapeScanner::text() {
  const std::size_t begin = here_;
  if (begin > 0 && (is_name_byte(sql_[begin - 1]) || sql_[begin - 1] == '&')) return false;
  const std::size_t value = shape_.data_.size();
  for (std::size_t from = begin + 1;;) {
    const std::size_t quote = sql_.find('\'', from);
    if (quote == std::string_view::npos) return false;
    shape_.data_.append(sql_, from, quote - from);
    here_ = quote + 1;
    if (at(here_) != '\'') break;
    shape_.data_ += '\'';
    from = here_ + 1;
  }
  if (is_value_place() && ends_value(here_)) {
    shape_.data_ += '\0';
    shape_.begins_.push_back(value);
    bind(begin, LiteralKind::text);
    return true;
  }
  shape_.data_.resize(value);
  plain_ = plain_ && !in_values_;
  before_ = Before::other;
  return true;
}

// Digits with a point, an exponent and a minus sign before them. The sign is one only where no operand stands
// before it.
bool ShapeScanner::number() {
  const std::size_t begin = here_;
  const bool is_value = is_value_place();
  if (sql_[here_] == '-') ++here_;
  const std::size_t digits = here_;
  while (is_digit(at(here_))) ++here_;
  LiteralKind kind = here_ - digits <= most_digits ? LiteralKind::integer : LiteralKind::decimal;
  const bool too_long = kind == LiteralKind::decimal;
  if (at(here_) == '.') {
    kind = LiteralKind::decimal;
    for (++here_; is_digit(at(here_));) ++here_;
  }
  if (at(here_) == 'e' || at(here_) == 'E') {
    const std::size_t sign = here_ + 1;
    const std::size_t exponent = at(sign) == '+' || at(sign) == '-' ? sign + 1 : sign;
    if (!is_digit(at(exponent))) return false;
    kind = LiteralKind::decimal;
    for (here_ = exponent; is_digit(at(here_));) ++here_;
  }
  const bool whole_number_too_long =
      too_long && sql_.substr(begin, here_ - begin).find_first_of(".eE") == std::string_view::npos;
  if (is_name_byte(at(here_)) || at(here_) == '.' || at(here_) == '$') return false;
  if (is_value && !whole_number_too_long && ends_value(here_)) {
    shape_.begins_.push_back(shape_.data_.size());
    shape_.data_.append(sql_, begin, here_ - begin).append(1, '\0');
    bind(begin, kind);
    return true;
  }
  plain_ = plain_ && !in_values_;
  before_ = Before::other;
  return true;
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

// A comparison of a column: its other side is a value.
bool ShapeScanner::comparison() {
  const bool of_column = before_ == Before::name && !in_values_;
  const std::size_t begin = here_;
  while (here_ < sql_.size() &&
         (sql_[here_] == '=' || sql_[here_] == '<' || sql_[here_] == '>' || sql_[here_] == '!'))
    ++here_;
  const std::string_view sign = sql_.substr(begin, here_ - begin);
  constexpr auto signs = std::to_array<std::string_view>({"=", "<", ">", "<=", ">=", "<>", "!="});
  before_ = of_column && is_one_of(signs, sign) ? Before::comparison : Before::other;
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
