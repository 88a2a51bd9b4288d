#include "client/month_end/guard.h"
#include "client/month_end/period.h"
#include "client/refusal.h"
#include "client/stocktaking/book.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// A sheet to count with.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--all", "", "every part of the master, also those that have not moved"},
    {"--blind", "", "leave the book quantity out, so that it does not sway who counts"},
};
constexpr std::string_view examples[] = {
    "count sheet 30 2024/02/15 --csv --db stock.db > sheet.csv",
    "count sheet 30 2024/02/15 --all --blind --db stock.db",
};

void require_department(const Reader& reader, const std::string& department) {
  if (reader.count("Select Count(*) As N From DEPARTS Where DEPTNO=" + Reader::text_literal(department)) == 0)
    throw Refusal("there is no department " + department);
}

bool is_closed(const Reader& reader, automation::Date day) {
  const auto records = close_records(reader);
  return !records.empty() && records.back().date.serial >= day.serial;
}

// What makes the sheet a poor one; it is printed all the same.
void warn_about(const VerbContext& context, const Reader& reader, automation::Date day) {
  try {
    require_no_unfinished_close(reader);
  } catch (const Refusal& refusal) {
    context.warn(std::string("the book may be wrong: ") + refusal.what());
  }
  if (is_closed(reader, day)) context.warn(day_text(day) + " is closed: the sheet cannot be imported");
}

Table sheet_of(const VerbContext& context, const std::string& department, automation::Date day,
               const std::vector<BookLine>& book) {
  const bool blind = context.has("--blind");
  Table table{"sheet", {}, {{"department"}, {"date"}, {"part"}, {"name"}, {"unit"}}, {}};
  if (!blind) table.columns.push_back(number_column("book"));
  for (const char* name : {"counted", "price"}) table.columns.push_back(number_column(name));
  table.columns.push_back({"notes"});
  for (const BookLine& line : book) {
    if (!line.moved && !context.has("--all")) continue;
    auto& row = table.rows.emplace_back();
    row = {department, day_text(day), line.part, line.name, line.unit};
    if (!blind) row.emplace_back(line.book);
    row.resize(table.columns.size());
  }
  return table;
}

ExitStatus run(VerbContext& context) {
  const std::string& department = context.argument(0);
  const automation::Date day = date_of(context.argument(1));
  require_department(context.reader(), department);
  warn_about(context, context.reader(), day);
  const Table sheet = sheet_of(context, department, day, book_of(context.reader(), department, day));
  context.print(sheet);
  const std::size_t parts = sheet.rows.size();
  context.tell(
      std::to_string(parts) + (parts == 1 ? " part." : " parts.") +
      (is_closed(context.reader(), day) ? "" : " Fill in 'counted', then 'count import' the sheet."));
  return exit_done;
}

}  // namespace

const Verb count_sheet_verb{
    .name = "count sheet",
    .arguments = "DEPARTMENT DATE",
    .summary = "a sheet to count the stock of a department with",
    .help =
        "Prints a line for each part that moved in the department since the last close. The book quantity "
        "is\n"
        "the one that the approval of a stocktaking of DATE holds the count against. Print the sheet with\n"
        "--csv into a file, have the column 'counted' filled in, and a price where a difference needs one,\n"
        "and hand the file to 'count import'.",
    .options = options,
    .examples = examples,
    .least_arguments = 2,
    .most_arguments = 2,
    .run = run,
};

}  // namespace tallyra::client
