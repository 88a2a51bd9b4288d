#pragma once

#include "standins/ado/row_set.h"

namespace tallyra::standins::ado {

// SQLite gives an expression the type of its value in the first row, and knows no dates. So the largest of
// some dates arrives as a text, and a sum that has nothing to add up in the first row makes a text of all
// others. A column of such an expression becomes
//   - dates, when every value is one in the form that date columns hold;
//   - numbers, when the first row holds none and all others are as SQLite writes numbers.
// Otherwise it stays text.
void settle_undeclared_columns(RowSet& rows);

}  // namespace tallyra::standins::ado
