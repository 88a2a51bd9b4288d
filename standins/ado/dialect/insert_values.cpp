#include "standins/ado/dialect/insert_values.h"

#include <array>
#include <cstddef>
#include <cstring>

#include "standins/ado/dialect/date_literal.h"

namespace tallyra::standins::ado::dialect {
namespace {

// Bytes that can stand in a number, a sign or a word such as Null. Two signs might begin a comment: see
// `bare`.
constexpr auto bare_byte = [] {
  std::array<bool, 256> table{};
  for (const char* c = "0123456789+-._ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"; *c != '\0'; ++c)
    table[static_cast<unsigned char>(*c)] = true;
  return table;
}();

bool is_bare(char c) {
  return bare_byte[static_cast<unsigned char>(c)];
}

class ValuesReader {
 public:
  ValuesReader(std::string_view sql, const InsertHead& head, std::string& out)
      : at_(sql.data() + head.text.size()),
        end_(sql.data() + sql.size()),
        copied_(sql.data()),
        head_(head),
        out_(out) {}

  ValuesOutcome read() {
    out_.clear();
    for (std::size_t position = 0;; ++position) {
      skip_blanks();
      if (!value(position < head_.dates.size() && head_.dates[position])) return ValuesOutcome::not_plain;
      skip_blanks();
      if (at_ == end_) return ValuesOutcome::not_plain;
      const char c = *at_++;
      if (c == ')') break;
      if (c != ',') return ValuesOutcome::not_plain;
    }
    skip_blanks();
    if (at_ != end_) return ValuesOutcome::not_plain;
    if (out_.empty()) return ValuesOutcome::as_is;
    out_.append(copied_, end_);
    return ValuesOutcome::rewritten;
  }

 private:
  void skip_blanks() {
    while (at_ != end_ && *at_ == ' ') ++at_;
  }

  bool value(bool is_date) {
    if (at_ == end_) return false;
    if (*at_ == '\'') return text(is_date);
    if (*at_ == '#') return hash();
    return bare();
  }

  bool text(bool is_date) {
    const char* begin = at_++;
    for (;; ++at_) {
      at_ = static_cast<const char*>(std::memchr(at_, '\'', static_cast<std::size_t>(end_ - at_)));
      if (at_ == nullptr) return false;
      if (++at_ == end_ || *at_ != '\'') break;
    }
    if (!is_date) return true;
    const auto date = read_quoted_date({begin + 1, static_cast<std::size_t>(at_ - begin - 2)});
    if (date) replace(begin, *date);
    return date.has_value();
  }

  bool hash() {
    const char* begin = at_;
    const std::size_t length = hash_date_length({begin, static_cast<std::size_t>(end_ - begin)});
    if (length == 0) return false;
    at_ += length;
    replace(begin, *read_date({begin + 1, length - 2}));
    return true;
  }

  bool bare() {
    const char* begin = at_;
    while (at_ != end_ && is_bare(*at_)) {
      if (*at_ == '-' && at_ + 1 != end_ && at_[1] == '-') return false;
      ++at_;
    }
    return at_ != begin;
  }

  // The literal from `begin` to here gives way to the date.
  void replace(const char* begin, const DateTime& date) {
    std::array<char, written_date_length> written;
    write_date(date, written.data());
    const std::string_view literal(begin, static_cast<std::size_t>(at_ - begin));
    if (literal == std::string_view(written.data(), written.size())) return;
    out_.append(copied_, begin);
    out_.append(written.data(), written.size());
    copied_ = at_;
  }

  const char* at_;
  const char* end_;
  const char* copied_;  // up to here the text is in `out_`, once something differs
  const InsertHead& head_;
  std::string& out_;
};

}  // namespace

ValuesOutcome rewrite_values(std::string_view sql, const InsertHead& head, std::string& out) {
  return ValuesReader(sql, head, out).read();
}

}  // namespace tallyra::standins::ado::dialect
