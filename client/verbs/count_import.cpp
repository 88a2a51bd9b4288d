#include "client/database/journal.h"
#include "client/refusal.h"
#include "client/stocktaking/entry.h"
#include "client/text_file.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// A counted sheet becomes a stocktaking.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--number", "CHECKNO",
     "number of the stocktaking; department and date, such as 30-20240215, unless given"},
    {"--department", "NUMBER", "the department, where the sheet has no such column"},
    {"--date", "DATE", "the day of the count, where the sheet has no such column"},
};
constexpr std::string_view examples[] = {
    "count import sheet.csv --db stock.db --user ANNA",
    "count import counted.csv --number CK-7 --department 30 --date 2024/02/15 --db stock.db",
};

void take_options(const VerbContext& context, CountSheet& sheet, SheetErrors& errors) {
  if (const auto department = context.words().value("--department")) {
    if (!sheet.department.empty() && sheet.department != *department)
      errors.push_back({0, "it is of department " + sheet.department + ", --department says " + *department});
    sheet.department = *department;
  }
  if (const auto word = context.words().value("--date")) {
    const automation::Date day = date_of(*word);
    if (sheet.day && sheet.day->serial != day.serial)
      errors.push_back({0, "it is of " + day_text(*sheet.day) + ", --date says " + day_text(day)});
    sheet.day = day;
  }
}

std::string number_for(const VerbContext& context, const CountSheet& sheet) {
  if (const auto number = context.words().value("--number")) return *number;
  if (sheet.department.empty() || !sheet.day) return {};
  std::string number = sheet.department + "-";
  for (const char c : day_text(*sheet.day))
    if (c != '/') number += c;
  return number;
}

void check_number(const Reader& reader, const std::string& number, SheetErrors& errors) {
  for (const char* table : {"STKCHECKHD", "STKCHECKDT"})
    if (reader.count("Select Count(*) As N From " + std::string(table) +
                     " Where CHECKNO=" + Reader::text_literal(number)) != 0) {
      errors.push_back({0, "there is a stocktaking " + number + " already; give another --number"});
      return;
    }
}

ExitStatus run(VerbContext& context) {
  SheetErrors errors;
  CountSheet sheet = read_sheet(text_of_file(context.argument(0)), errors);
  take_options(context, sheet, errors);
  check_sheet(context.reader(), sheet, errors);
  const std::string number = number_for(context, sheet);
  if (!number.empty()) {
    require_check_number(number);
    check_number(context.reader(), number, errors);
  }
  if (!errors.empty())
    throw Refusal(context.argument(0) + " has " + std::to_string(errors.size()) +
                  (errors.size() == 1 ? " error" : " errors") + "; nothing was written\n" +
                  errors_text(errors));
  require_own_tables(context);
  enter_stocktaking(context, number, sheet);
  journal(context, {"count import", number, "done",
                    std::to_string(sheet.lines.size()) + " lines of department " + sheet.department});
  context.tell("Entered stocktaking " + number + ": " + std::to_string(sheet.lines.size()) +
               (sheet.lines.size() == 1 ? " part" : " parts") + " of department " + sheet.department +
               " on " + day_text(*sheet.day) + "; " + std::to_string(sheet.not_counted) +
               (sheet.not_counted == 1 ? " was" : " were") + " not counted. 'count approve " + number +
               "' posts what differs.");
  return exit_done;
}

}  // namespace

const Verb count_import_verb{
    .name = "count import",
    .arguments = "FILE",
    .summary = "enter a counted sheet as a stocktaking",
    .help =
        "Reads a sheet such as 'count sheet' prints, separated by commas, semicolons or tabs, with the "
        "names\n"
        "of the columns in its first line: part and counted are needed. All that is wrong with it is told "
        "at\n"
        "once, line by line, and nothing is written then. Numbers have a point: 1.5, not 1,5. A line "
        "without\n"
        "a counted quantity is left out. When a line cannot be stored, what was entered before is deleted.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
