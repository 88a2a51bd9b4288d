#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "company/ado_connection.h"
#include "schema/description.h"

namespace tallyra::company {

// A table's rows are moved in parts, so that a large one does not fill the memory: those whose first column,
// a text, lies between two values. A small table is one part without limits.
struct TablePart {
  std::string condition;  // behind the table in a query; empty for all rows
  std::uint64_t rows = 0;
};

// All parts of a table together are all its rows.
std::vector<TablePart> parts_of(const AdoConnection& connection, const schema::Table& table);

// The rows of a part, each as the list of its values in the form of append_literal. Throws Refusal, which
// names the table, for a value without one.
std::vector<std::string> rows_of(const AdoConnection& connection, const schema::Table& table,
                                 const TablePart& part);

// Writes rows in that form into the table, many with each statement.
void insert_rows(const AdoConnection& connection, const schema::Table& table,
                 const std::vector<std::string>& rows);

std::uint64_t row_count(const AdoConnection& connection, std::string_view table);

}  // namespace tallyra::company
