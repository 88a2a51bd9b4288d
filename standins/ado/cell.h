#pragma once

#include <cstdint>
#include <string_view>

namespace tallyra::standins::ado {

// What one field of one row holds, small and plain. Texts and bytes lie in the arena of the row set.
struct Cell {
  enum class Kind : std::uint8_t {
    null,
    boolean,
    uint8,
    int16,
    int32,
    int64,
    single,
    real,
    currency,
    date,
    decimal,  // its text
    text,
    bytes,
  };

  union {
    std::int64_t integer;  // also boolean and ten-thousandths of a currency
    double number;         // also single and the serial of a date
    const char* data;
  };
  std::uint32_t size;  // of the data
  Kind kind;

  std::string_view view() const { return {data, size}; }

  static Cell null() { return of_integer(Kind::null, 0); }
  static Cell of_integer(Kind kind, std::int64_t value) {
    Cell cell;
    cell.integer = value;
    cell.size = 0;
    cell.kind = kind;
    return cell;
  }
  static Cell of_number(Kind kind, double value) {
    Cell cell;
    cell.number = value;
    cell.size = 0;
    cell.kind = kind;
    return cell;
  }
  static Cell of_data(Kind kind, const char* data, std::size_t size) {
    Cell cell;
    cell.data = data;
    cell.size = static_cast<std::uint32_t>(size);
    cell.kind = kind;
    return cell;
  }
};

}  // namespace tallyra::standins::ado
