#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tallyra::automation {

// Money as automation holds it: exact, counted in ten-thousandths.
struct Currency {
  std::int64_t ten_thousandths = 0;

  void append_text(std::string& out) const;
  double to_double() const { return static_cast<double>(ten_thousandths) / 10000.0; }
  friend bool operator==(const Currency&, const Currency&) = default;
};

// A decimal number of up to 96 bits with 0 to 28 places, exact.
class Decimal {
 public:
  static constexpr int max_scale = 28;

  Decimal() = default;
  explicit Decimal(std::int64_t integer);
  // Words from the least significant to the most significant; `scale` places behind the point.
  Decimal(std::array<std::uint32_t, 3> words, int scale, bool negative);

  // Reads "-123.4500"; nothing when the text is no plain decimal number or does not fit into 96 bits.
  static std::optional<Decimal> parse(std::string_view text);

  // Plain digits without an exponent, trailing zeros behind the point dropped.
  void append_text(std::string& out) const;
  double to_double() const;

  const std::array<std::uint32_t, 3>& words() const { return words_; }
  int scale() const { return scale_; }
  bool negative() const { return negative_; }
  // Same sign, digits and scale; 1.50 and 1.5 differ here, as they do on the wire.
  friend bool operator==(const Decimal&, const Decimal&) = default;

 private:
  bool multiply_add(std::uint32_t factor, std::uint32_t addend);

  std::array<std::uint32_t, 3> words_{};
  int scale_ = 0;
  bool negative_ = false;
};

}  // namespace tallyra::automation
