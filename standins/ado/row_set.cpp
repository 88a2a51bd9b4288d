#include "standins/ado/row_set.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <utility>

#include "automation/bytes.h"

namespace tallyra::standins::ado {
namespace {

// A block of up to 64 KB: the many results of a row or two touch only its first page.
constexpr std::size_t cells_per_block = 4096;

}  // namespace

RowSet::RowSet(std::vector<Column> columns)
    : columns_(std::move(columns)),
      block_shift_(
          static_cast<unsigned>(std::bit_width(std::max<std::size_t>(
                                    cells_per_block / std::max<std::size_t>(columns_.size(), 1), 1)) -
                                1)) {}

void RowSet::add_block() {
  blocks_.push_back(std::make_unique_for_overwrite<Cell[]>(rows_per_block() * columns_.size()));
}

automation::Value RowSet::value(std::size_t row_index, std::size_t column) const {
  const Cell& cell = row(row_index)[column];
  switch (cell.kind) {
    case Cell::Kind::null: return automation::Null{};
    case Cell::Kind::boolean: return cell.integer != 0;
    case Cell::Kind::uint8: return static_cast<std::uint8_t>(cell.integer);
    case Cell::Kind::int16: return static_cast<std::int16_t>(cell.integer);
    case Cell::Kind::int32: return static_cast<std::int32_t>(cell.integer);
    case Cell::Kind::int64: return cell.integer;
    case Cell::Kind::single: return static_cast<float>(cell.number);
    case Cell::Kind::real: return cell.number;
    case Cell::Kind::currency: return automation::Currency{cell.integer};
    case Cell::Kind::date: return automation::Date{cell.number};
    case Cell::Kind::decimal:
      if (const auto decimal = automation::Decimal::parse(cell.view())) return *decimal;
      return cell.view();
    case Cell::Kind::text: return cell.view();
    case Cell::Kind::bytes: return automation::Opaque(std::make_shared<automation::Bytes>(cell.view()));
  }
  return {};
}

}  // namespace tallyra::standins::ado
