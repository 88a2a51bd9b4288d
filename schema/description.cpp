#include "schema/description.h"

#include <iterator>

#include "schema/subjects.h"

namespace tallyra::schema {
namespace {

std::vector<Table> gathered() {
  std::vector<Table> all;
  for (const auto subject : {stock_documents, stocktaking, closing_and_costing, master_data,
                             surrounding_masters, surrounding_orders, administration}) {
    auto part = subject();
    all.insert(all.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
  }
  return all;
}

}  // namespace

std::vector<Column> with_stamp(std::vector<Column> columns) {
  for (const Column& column : {text("ADDBY", 50), date("ADDDT"), text("EDITBY", 50), date("EDITDT")})
    columns.push_back(column);
  return columns;
}

const std::vector<Table>& tables() {
  static const std::vector<Table> all = gathered();
  return all;
}

}  // namespace tallyra::schema
