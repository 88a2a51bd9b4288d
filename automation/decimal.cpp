#include "automation/decimal.h"

#include <charconv>

namespace tallyra::automation {
namespace {

void append_scaled_digits(std::string& out, std::string digits, int scale, bool negative) {
  const auto places = static_cast<std::size_t>(scale);
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  std::string fraction = digits.substr(digits.size() - places);
  digits.resize(digits.size() - places);
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  if (negative && (digits != "0" || !fraction.empty())) out += '-';
  out += digits;
  if (!fraction.empty()) out.append(1, '.').append(fraction);
}

}  // namespace

void Currency::append_text(std::string& out) const {
  const bool negative = ten_thousandths < 0;
  auto magnitude = static_cast<std::uint64_t>(ten_thousandths);
  if (negative) magnitude = 0 - magnitude;
  append_scaled_digits(out, std::to_string(magnitude), 4, negative);
}

Decimal::Decimal(std::int64_t integer) : negative_(integer < 0) {
  auto magnitude = static_cast<std::uint64_t>(integer);
  if (negative_) magnitude = 0 - magnitude;
  words_ = {static_cast<std::uint32_t>(magnitude), static_cast<std::uint32_t>(magnitude >> 32), 0};
}

Decimal::Decimal(std::array<std::uint32_t, 3> words, int scale, bool negative)
    : words_(words), scale_(scale), negative_(negative) {}

bool Decimal::multiply_add(std::uint32_t factor, std::uint32_t addend) {
  std::uint64_t carry = addend;
  auto result = words_;
  for (auto& word : result) {
    carry += static_cast<std::uint64_t>(word) * factor;
    word = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  if (carry != 0) return false;
  words_ = result;
  return true;
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
  Decimal result;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    result.negative_ = text.front() == '-';
    text.remove_prefix(1);
  }
  bool digits_seen = false;
  bool behind_point = false;
  for (const char c : text) {
    if (c == '.' && !behind_point) {
      behind_point = true;
      continue;
    }
    if (c < '0' || c > '9') return std::nullopt;
    digits_seen = true;
    if (behind_point && ++result.scale_ > max_scale) return std::nullopt;
    if (!result.multiply_add(10, static_cast<std::uint32_t>(c - '0'))) return std::nullopt;
  }
  if (!digits_seen) return std::nullopt;
  return result;
}

void Decimal::append_text(std::string& out) const {
  auto rest = words_;
  std::string digits;
  do {
    std::uint64_t remainder = 0;
    for (std::size_t i = rest.size(); i-- > 0;) {
      remainder = (remainder << 32) | rest[i];
      rest[i] = static_cast<std::uint32_t>(remainder / 10);
      remainder %= 10;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + remainder));
  } while ((rest[0] | rest[1] | rest[2]) != 0);
  append_scaled_digits(out, std::move(digits), scale_, negative_);
}

double Decimal::to_double() const {
  std::string text;
  append_text(text);
  double result = 0;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

}  // namespace tallyra::automation
