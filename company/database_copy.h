#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "company/generator.h"

namespace tallyra::company {

// What is being done ("copying", "comparing"), with which table, and how many of all rows are behind it.
using CopyProgress =
    std::function<void(std::string_view doing, std::string_view table, std::uint64_t rows, std::uint64_t of)>;

// Copies the whole database of an SQLite file into an empty database of any engine that this program reaches,
// with rights and counters of document numbers, and compares both row by row before it commits. Places are as
// --db takes them. Missing tables of the target are created; all of it happens in one transaction there, so
// that a failure leaves the target as it was. (An SQLite target's counters, in a file of their own, are
// committed right after it.) Nobody can write to the source meanwhile. Returns the rows of each table. Throws
// Refusal: when the source is of another engine, newer, or holds tables or columns that are not described;
// when a table of the target has a row; when the copies differ, with the tables in which they do. Throws
// automation::Error.
std::vector<TableCount> copy_database(const std::string& from, const std::string& to,
                                      const CopyProgress& progress);

}  // namespace tallyra::company
