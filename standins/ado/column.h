#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "standins/ado/odbc_api.h"

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

// The columns of the statement's open result. Throws Error.
std::vector<Column> describe_columns(SQLHSTMT statement, int count, bool is_sqlite);

}  // namespace tallyra::standins::ado
