#include "bench/shape.h"

#include <algorithm>
#include <charconv>

#include "automation/folded_name.h"

namespace tallyra::bench {
namespace {

constexpr auto npos = std::string_view::npos;

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// SQLite takes every byte above ASCII for part of a name.
bool is_word(char c) {
  return is_digit(c) || c == '_' || c == '$' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool can_be_bound(std::string_view sql) {
  const std::size_t begin = std::min(sql.find_first_not_of(" \t\r\n"), sql.size());
  std::size_t end = begin;
  while (end < sql.size() && is_word(sql[end])) ++end;
  const std::string_view verb = sql.substr(begin, end - begin);
  for (const char* known : {"insert", "select", "update", "delete"})
    if (automation::equals_folded(verb, known)) return true;
  return false;
}

std::size_t skip_digits(std::string_view sql, std::size_t at) {
  while (at < sql.size() && is_digit(sql[at])) ++at;
  return at;
}

struct NumberText {
  std::size_t end;
  bool is_integer;
};

// Where the number ends whose first digit, behind a sign, is at a place.
NumberText number_at(std::string_view sql, std::size_t at) {
  NumberText found{skip_digits(sql, at), true};
  if (found.end < sql.size() && sql[found.end] == '.') found = {skip_digits(sql, found.end + 1), false};
  if (found.end < sql.size() && (sql[found.end] | 0x20) == 'e') {
    std::size_t exponent = found.end + 1;
    if (exponent < sql.size() && (sql[exponent] == '+' || sql[exponent] == '-')) ++exponent;
    const std::size_t end = skip_digits(sql, exponent);
    if (end > exponent) found = {end, false};
  }
  return found;
}

}  // namespace

const Shape& ShapeReader::read(std::string_view sql) {
  sql_ = sql;
  position_ = 0;
  before_ = ' ';
  among_values_ = false;
  shape_.sql.clear();
  shape_.literals.clear();
  shape_.texts.clear();
  if (!can_be_bound(sql)) {
    shape_.sql = sql;
    return shape_;
  }
  while (position_ < sql_.size()) {
    const char c = sql_[position_];
    const std::string_view two = sql_.substr(position_, 2);
    if (c == '?' || two == "--" || two == "/*") {
      shape_.sql = sql_;
      shape_.literals.clear();
      break;
    }
    if (c == '\'') {
      read_text();
    } else if (copy_quoted_name() || read_number()) {
      continue;
    } else if (is_word(c)) {
      copy_word();
    } else {
      copy_character();
    }
  }
  return shape_;
}

bool ShapeReader::is_wanted() const {
  if (among_values_) return before_ == '(' || before_ == ',';
  return before_ == '=' || before_ == '<' || before_ == '>';
}

bool ShapeReader::copy_quoted_name() {
  const char open = sql_[position_];
  if (open != '"' && open != '[' && open != '`') return false;
  const std::size_t close = sql_.find(open == '[' ? ']' : open, position_ + 1);
  const std::size_t end = close == npos ? sql_.size() : close + 1;
  shape_.sql += sql_.substr(position_, end - position_);
  position_ = end;
  before_ = open;
  return true;
}

void ShapeReader::read_text() {
  const std::size_t start = position_;
  const std::size_t begin = shape_.texts.size();
  for (++position_; position_ < sql_.size(); ++position_) {
    if (sql_[position_] == '\'' && sql_.substr(position_ + 1, 1) != "'") break;
    if (sql_[position_] == '\'') ++position_;
    shape_.texts += sql_[position_];
  }
  if (position_ < sql_.size()) ++position_;
  const std::size_t size = shape_.texts.size() - begin;
  if (is_wanted() && (among_values_ || size > 0)) {
    shape_.literals.push_back({.kind = Literal::Kind::text, .begin = begin, .size = size});
    shape_.sql += '?';
  } else {
    shape_.sql += sql_.substr(start, position_ - start);
  }
  before_ = '\'';
}

bool ShapeReader::read_number() {
  const bool is_signed = sql_[position_] == '-';
  const std::size_t digits = position_ + (is_signed ? 1 : 0);
  if (!is_wanted() || digits >= sql_.size() || !is_digit(sql_[digits])) return false;
  const NumberText number = number_at(sql_, digits);
  // Something like 0x1F is for the engine to read.
  if (number.end < sql_.size() && is_word(sql_[number.end])) return false;
  Literal literal{.kind = number.is_integer ? Literal::Kind::integer : Literal::Kind::real};
  const char* const first = sql_.data() + position_;
  const char* const last = sql_.data() + number.end;
  const std::errc error = number.is_integer ? std::from_chars(first, last, literal.integer).ec
                                            : std::from_chars(first, last, literal.real).ec;
  if (error != std::errc()) return false;
  shape_.literals.push_back(literal);
  shape_.sql += '?';
  position_ = number.end;
  before_ = '0';
  return true;
}

void ShapeReader::copy_word() {
  std::size_t end = position_;
  while (end < sql_.size() && is_word(sql_[end])) ++end;
  const std::string_view word = sql_.substr(position_, end - position_);
  among_values_ = among_values_ || automation::equals_folded(word, "values");
  shape_.sql += word;
  position_ = end;
  before_ = word.back();
}

void ShapeReader::copy_character() {
  const char c = sql_[position_++];
  shape_.sql += c;
  if (c != ' ' && c != '\n' && c != '\t' && c != '\r') before_ = c;
}

}  // namespace tallyra::bench
