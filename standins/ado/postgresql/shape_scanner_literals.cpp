// Which literals of a text become parameters of its shape.

#include <algorithm>
#include <array>
#include <charconv>

#include "automation/folded_name.h"
#include "standins/ado/postgresql/shape_characters.h"
#include "standins/ado/postgresql/shape_scanner.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::size_t most_digits = 9;

// Behind them a comparison has its whole right side.
constexpr auto words_behind_value =
    std::to_array<std::string_view>({"and", "or", "where", "order", "limit", "group"});

// A number has no such zero, and a parameter may be of a type that has.
bool is_zero_with_sign(std::string_view literal) {
  return literal[0] == '-' &&
         literal.substr(0, literal.find_first_of("eE")).find_first_of("123456789") == std::string_view::npos;
}

}  // namespace

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
  const std::string_view word = sql_.substr(from, end - from);
  return std::ranges::any_of(words_behind_value,
                             [&](std::string_view entry) { return automation::equals_folded(entry, word); });
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
  const std::string_view literal = sql_.substr(begin, here_ - begin);
  const bool whole_number_too_long = too_long && literal.find_first_of(".eE") == std::string_view::npos;
  if (is_name_byte(at(here_)) || at(here_) == '.' || at(here_) == '$') return false;
  if (is_value && !whole_number_too_long && ends_value(here_)) {
    before_ = Before::other;
    if (is_zero_with_sign(literal)) return true;
    shape_.begins_.push_back(shape_.data_.size());
    shape_.data_.append(literal).append(1, '\0');
    bind(begin, kind);
    return true;
  }
  plain_ = plain_ && !in_values_;
  before_ = Before::other;
  return true;
}

}  // namespace tallyra::standins::ado
