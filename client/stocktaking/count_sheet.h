#pragma once

#include <optional>
#include <string>
#include <vector>

#include "automation/date.h"
#include "client/database/reader.h"

namespace tallyra::client {

struct CountedLine {
  std::size_t line = 0;  // of the file
  std::string part;
  double quantity = 0;
  std::optional<double> price;
  std::string notes;
};

// A sheet that has come back with counted quantities.
struct CountSheet {
  std::string department;
  std::optional<automation::Date> day;
  std::vector<CountedLine> lines;
  std::size_t not_counted = 0;  // lines whose counted quantity was left empty
};

// What is wrong with a sheet, and on which line; 0 when it is the sheet as a whole.
struct SheetError {
  std::size_t line = 0;
  std::string text;
};
using SheetErrors = std::vector<SheetError>;

// Reads a sheet. The first row names the columns, in any order: part and counted are needed; department and
// date, the same in every row, price and notes may be there; all others are passed over. What is wrong goes
// to `errors`, and reading goes on.
CountSheet read_sheet(const std::string& text, SheetErrors& errors);

// Looks for what only the database can tell: parts and a department that it lacks, parts that come twice,
// a date that is closed.
void check_sheet(const Reader& reader, CountSheet& sheet, SheetErrors& errors);

// By line, "line 7: ..." each.
std::string errors_text(SheetErrors errors);

}  // namespace tallyra::client
