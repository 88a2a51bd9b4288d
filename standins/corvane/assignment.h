#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "standins/corvane/dialect.h"

namespace tallyra::standins::corvane {

// One column and what is written into it, both as a statement spells them.
struct Assignment {
  std::string column;
  std::string literal;
};

// Pairs a collection of column names with the collection of their values, checked against the fields of an
// open recordset on the table: each name must be one of them, in any case, and none may come twice. Throws
// Error with a number of failure.h and a text that names table, column and value; or the error of a
// collection or recordset that fails itself.
std::vector<Assignment> assignments(std::string_view table, const automation::Object& names,
                                    const automation::Object& values, const automation::Object& recordset,
                                    Dialect dialect);

}  // namespace tallyra::standins::corvane
