#include "standins/corvane/document_number.h"

#include <algorithm>
#include <charconv>

#include "automation/error.h"
#include "standins/corvane/failure.h"

namespace tallyra::standins::corvane {
namespace {

bool is_word_character(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

std::string series_word(std::string_view document_type) {
  constexpr std::string_view family = "STK";
  const std::string_view word =
      document_type.starts_with(family) ? document_type.substr(family.size()) : document_type;
  if (word.empty() || !std::ranges::all_of(word, is_word_character))
    throw automation::Error(
        failure::bad_key_request,
        "\"" + std::string(document_type) + "\" is no document type that numbers are issued for.");
  return std::string(word);
}

void append_two_digits(std::string& out, int value) {
  out += static_cast<char>('0' + value / 10 % 10);
  out += static_cast<char>('0' + value % 10);
}

}  // namespace

Series::Series(std::string prefix, std::size_t digits) : prefix_(std::move(prefix)), digits_(digits) {
  for (std::size_t i = 0; i < digits_; ++i) last_counter_ *= 10;
  --last_counter_;
  if (prefix_.size() + digits_ > longest_number)
    throw automation::Error(failure::bad_key_request, "Document numbers that start with \"" + prefix_ +
                                                          "\" would be longer than " +
                                                          std::to_string(longest_number) + " characters.");
}

Series Series::running(std::string_view document_type) {
  return {series_word(document_type), 8};
}

Series Series::daily(std::string_view document_type, const automation::CivilTime& day) {
  std::string prefix = series_word(document_type);
  append_two_digits(prefix, day.year % 100);
  append_two_digits(prefix, day.month);
  append_two_digits(prefix, day.day);
  return {std::move(prefix), 4};
}

std::string Series::number(std::int32_t counter) const {
  const std::string digits = std::to_string(counter);
  return prefix_ + std::string(digits_ - digits.size(), '0') + digits;
}

std::optional<std::int32_t> Series::counter_of(std::string_view number) const {
  if (number.size() != prefix_.size() + digits_ || !number.starts_with(prefix_)) return std::nullopt;
  const std::string_view digits = number.substr(prefix_.size());
  std::int32_t counter = 0;
  const auto [end, status] = std::from_chars(digits.data(), digits.data() + digits.size(), counter);
  if (status != std::errc{} || end != digits.data() + digits.size() || counter < 0) return std::nullopt;
  return counter;
}

}  // namespace tallyra::standins::corvane
