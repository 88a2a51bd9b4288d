#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tallyra::standins::ado {

// ADO's names of column types.
enum class DataType : std::int32_t {
  small_int = 2,
  integer = 3,
  single = 4,
  double_precision = 5,
  currency = 6,
  boolean = 11,
  unsigned_tiny_int = 17,
  big_int = 20,
  numeric = 131,
  date = 133,
  time_stamp = 135,
  text = 202,
  long_text = 203,
  bytes = 204,
  long_bytes = 205,
};

// A column as the result of a statement describes it.
struct Column {
  std::string name;
  DataType type = DataType::text;
  // Texts in characters, the others in bytes; 0 when there is no limit that the driver knows of.
  std::int64_t defined_size = 0;
  std::uint8_t precision = 255;  // 255: the type has none
  std::uint8_t scale = 255;
  // An expression that the engine calls a text because it has no declared type: its values may tell better.
  bool undeclared = false;
};

bool is_text(DataType type);
bool is_bytes(DataType type);
bool is_date(DataType type);

// The type that a declared name means, for the names that engines pass off as something else; nothing for
// others.
std::optional<DataType> type_behind(std::string_view declared);

// Sets size, precision and scale as ADO has them for the column's type. `size` and `digits` are what the
// engine says: the greatest length of a text, or the digits of a decimal and those behind its point.
void measure(Column& column, std::int64_t size, int digits);

}  // namespace tallyra::standins::ado
