#include "standins/ado/dialect/literal_scan.h"

#include <array>
#include <cstring>

#include "standins/ado/dialect/characters.h"
#include "standins/ado/dialect/date_literal.h"
#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {
namespace {

constexpr std::size_t longest_form = 8192;
constexpr std::size_t most_literals = 1024;

enum class Byte : std::uint8_t { refused, blank, name, digit, dot, minus, slash, quote, hash, sign };

constexpr auto bytes = [] {
  std::array<Byte, 256> table{};
  for (const char c : std::string_view(" \t\n\r\f")) table[static_cast<unsigned char>(c)] = Byte::blank;
  for (unsigned c = 'a'; c <= 'z'; ++c) table[c] = table[c - 'a' + 'A'] = Byte::name;
  for (unsigned c = 0x80; c <= 0xFF; ++c) table[c] = Byte::name;
  for (unsigned c = '0'; c <= '9'; ++c) table[c] = Byte::digit;
  for (const char c : std::string_view("(),=<>!*+%&|~")) table[static_cast<unsigned char>(c)] = Byte::sign;
  table['_'] = Byte::name;
  table['.'] = Byte::dot;
  table['-'] = Byte::minus;
  table['/'] = Byte::slash;
  table['\''] = Byte::quote;
  table['#'] = Byte::hash;
  return table;
}();

Byte byte_of(char c) {
  return bytes[static_cast<unsigned char>(c)];
}

bool continues_name(char c) {
  return byte_of(c) == Byte::name || is_digit(c);
}

bool begins_statement(std::string_view sql) {
  const std::string_view word = sql.substr(0, 6);
  return same_name(word, "select") || same_name(word, "insert") || same_name(word, "update") ||
         same_name(word, "delete");
}

class Scanner {
 public:
  Scanner(std::string_view sql, StatementForm& form)
      : begin_(sql.data()), at_(begin_), end_(begin_ + sql.size()), copied_(begin_), form_(form) {}

  bool scan() {
    while (at_ != end_)
      if (!step()) return false;
    copy_to(end_);
    return form_.form.size() <= longest_form;
  }

 private:
  bool step() {
    switch (byte_of(*at_)) {
      case Byte::refused: return false;
      case Byte::blank: ++at_; return true;
      case Byte::name: return word();
      case Byte::digit: return number(at_);
      case Byte::dot:
        // Behind a name it is that of a column; before a digit it would begin a number.
        if (digit_at(at_ + 1)) return !continues_name(before_) && before_ != '.' && number(at_);
        return sign();
      case Byte::minus: return minus();
      case Byte::slash: return !(at_ + 1 != end_ && at_[1] == '*') && sign();
      case Byte::quote: return text();
      case Byte::hash: return date();
      case Byte::sign: return sign();
    }
    return false;
  }

  bool digit_at(const char* at) const { return at != end_ && is_digit(*at); }

  // Whether what comes now is a value from its beginning.
  bool begins_value() const { return before_ == ',' || before_ == '(' || before_ == '='; }

  bool sign() {
    before_ = *at_++;
    return true;
  }

  bool word() {
    const char* const first = at_;
    do ++at_;
    while (at_ != end_ && continues_name(*at_));
    // x'41' is a blob.
    if (at_ != end_ && *at_ == '\'') return false;
    if (at_ - first == 4 && begins_value() && same_name({first, 4}, "null"))
      return literal(first, Literal::Kind::null);
    before_ = 'a';
    return true;
  }

  bool minus() {
    if (at_ + 1 != end_ && at_[1] == '-') return false;
    const bool negative =
        begins_value() && (digit_at(at_ + 1) || (at_ + 1 != end_ && at_[1] == '.' && digit_at(at_ + 2)));
    return negative ? number(at_ + 1) : sign();
  }

  // Its digits begin at `digits`, behind the sign at the current place if there is one.
  bool number(const char* digits) {
    const char* const first = at_;
    auto kind = Literal::Kind::integer;
    at_ = digits;
    skip_digits();
    if (at_ != end_ && *at_ == '.') {
      kind = Literal::Kind::real;
      ++at_;
      skip_digits();
    }
    if (at_ != end_ && (*at_ == 'e' || *at_ == 'E')) {
      kind = Literal::Kind::real;
      ++at_;
      if (at_ != end_ && (*at_ == '+' || *at_ == '-')) ++at_;
      if (!digit_at(at_)) return false;
      skip_digits();
    }
    if (at_ != end_ && (continues_name(*at_) || *at_ == '.')) return false;
    return literal(first, kind);
  }

  void skip_digits() {
    while (at_ != end_ && is_digit(*at_)) ++at_;
  }

  bool text() {
    const char* const first = at_++;
    for (;; ++at_) {
      at_ = static_cast<const char*>(std::memchr(at_, '\'', static_cast<std::size_t>(end_ - at_)));
      if (at_ == nullptr) return false;
      if (++at_ == end_ || *at_ != '\'') break;
    }
    return std::memchr(first, '\0', static_cast<std::size_t>(at_ - first)) == nullptr &&
           literal(first, Literal::Kind::text);
  }

  bool date() {
    const char* const first = at_;
    const std::size_t length = hash_date_length({at_, static_cast<std::size_t>(end_ - at_)});
    at_ += length;
    return length != 0 && literal(first, Literal::Kind::date);
  }

  // From `first` to here.
  bool literal(const char* first, Literal::Kind kind) {
    copy_to(first);
    form_.form += '\x01';
    copied_ = at_;
    before_ = '\x01';
    form_.literals.push_back(
        {static_cast<std::size_t>(first - begin_), static_cast<std::size_t>(at_ - begin_), kind});
    return form_.literals.size() <= most_literals;
  }

  void copy_to(const char* end) { form_.form.append(copied_, end); }

  const char* const begin_;
  const char* at_;
  const char* const end_;
  const char* copied_;  // up to here the text is in the form
  char before_ = ' ';   // the byte before, blanks apart; 'a' for a word, \x01 for a value
  StatementForm& form_;
};

}  // namespace

bool scan_literals(std::string_view sql, StatementForm& form) {
  form.form.clear();
  form.literals.clear();
  return begins_statement(sql) && Scanner(sql, form).scan();
}

}  // namespace tallyra::standins::ado::dialect
