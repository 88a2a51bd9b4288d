#include "standins/ado/column.h"

#include "automation/folded_name.h"

namespace tallyra::standins::ado {
namespace {

struct DeclaredType {
  std::string_view name;
  DataType type;
};

// Types that drivers pass off as something else.
constexpr DeclaredType declared_types[] = {
    {"decimal", DataType::numeric},   {"numeric", DataType::numeric},     {"money", DataType::currency},
    {"currency", DataType::currency}, {"smallmoney", DataType::currency}, {"bool", DataType::boolean},
    {"boolean", DataType::boolean},
};

}  // namespace

bool is_text(DataType type) {
  return type == DataType::text || type == DataType::long_text;
}

bool is_bytes(DataType type) {
  return type == DataType::bytes || type == DataType::long_bytes;
}

bool is_date(DataType type) {
  return type == DataType::date || type == DataType::time_stamp;
}

std::optional<DataType> type_behind(std::string_view declared) {
  for (const DeclaredType& entry : declared_types)
    if (automation::equals_folded(entry.name, declared)) return entry.type;
  return std::nullopt;
}

void measure(Column& column, std::int64_t size, int digits) {
  const auto fixed = [&](std::int64_t bytes, std::uint8_t precision) {
    column.defined_size = bytes;
    column.precision = precision;
  };
  switch (column.type) {
    case DataType::small_int: return fixed(2, 5);
    case DataType::integer: return fixed(4, 10);
    case DataType::single: return fixed(4, 7);
    case DataType::double_precision: return fixed(8, 15);
    case DataType::currency: return fixed(8, 19);
    case DataType::boolean: return fixed(2, 255);
    case DataType::unsigned_tiny_int: return fixed(1, 3);
    case DataType::big_int: return fixed(8, 19);
    case DataType::date: return fixed(6, 10);
    case DataType::time_stamp: return fixed(16, 19);
    case DataType::numeric:
      fixed(19, static_cast<std::uint8_t>(size > 0 && size <= 28 ? size : 28));
      column.scale = static_cast<std::uint8_t>(digits >= 0 ? digits : 0);
      return;
    default: column.defined_size = size;
  }
}

}  // namespace tallyra::standins::ado
