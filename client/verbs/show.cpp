#include <algorithm>
#include <cmath>

#include "automation/convert.h"
#include "client/month_end/period.h"
#include "client/month_end/summary.h"
#include "client/refusal.h"
#include "client/report/number_text.h"
#include "client/value_text.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// One document, stocktaking or close, with its lines.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {
    "show PR2401000027 --db stock.db",
    "show CK24020001 --db stock.db --json",
    "show 2024/01/31 --db stock.db",
};

// One row: its columns below each other for the eye, beside each other for a program.
Table header_table(const Rows& rows, OutputFormat format) {
  if (format != OutputFormat::text) {
    Table table{"document", "", {}, rows.rows};
    for (const std::string& column : rows.columns) table.columns.push_back({column});
    return table;
  }
  Table table{"document", "", {{"column"}, {"value"}}, {}};
  const Row& row = rows.rows.front();
  for (std::size_t i = 0; i < row.size(); ++i)
    if (!row[i].is_null()) table.rows.push_back({rows.columns[i], row[i]});
  return table;
}

Rows document_header(const Reader& reader, const std::string& number) {
  return reader.rows("Select * From STKTRANHD Where TRANNO=" + Reader::text_literal(number));
}

Table document_lines(const Reader& reader, const std::string& number) {
  Table table{"lines",
              "Lines",
              {number_column("line"),
               {"part"},
               {"name"},
               number_column("quantity"),
               {"unit"},
               number_column("price"),
               {"reference"},
               {"notes"}},
              {}};
  table.rows = reader
                   .rows(
                       "Select STKTRANDT.SN,STKTRANDT.PARTNO,PARTS.PARTNM,STKTRANDT.QTY,PARTS.UNITNM,"
                       "STKTRANDT.UPRICE,STKTRANDT.REFERENCE,STKTRANDT.NOTES From STKTRANDT"
                       " Left Join PARTS On STKTRANDT.PARTNO=PARTS.PARTNO Where STKTRANDT.TRANNO=" +
                       Reader::text_literal(number) + " Order By STKTRANDT.SN,STKTRANDT.PARTNO")
                   .rows;
  return table;
}

Table note_table(const Rows& note) {
  Table table = header_table(note, OutputFormat::csv);
  table.name = "note";
  table.title = "Shipping note";
  return table;
}

bool show_document(VerbContext& context, const std::string& number) {
  const Reader& reader = context.reader();
  const Rows header = document_header(reader, number);
  if (header.rows.empty()) return false;
  std::vector<Table> tables{header_table(header, context.format()), document_lines(reader, number)};
  double quantity = 0;
  double value = 0;
  for (const Row& row : tables.back().rows) {
    quantity += number_or_zero(row[3]);
    value += number_or_zero(row[3]) * number_or_zero(row[5]);
  }
  const std::size_t lines = tables.back().rows.size();
  const Rows note = reader.rows("Select * From STKSHIPNOTE Where TRANNO=" + Reader::text_literal(number));
  if (!note.rows.empty()) tables.push_back(note_table(note));
  context.print(tables);
  context.tell(std::to_string(lines) + " lines, quantity " + plain_number(quantity) + ", value " +
               plain_number(value) + ".");
  return true;
}

bool show_stocktaking(VerbContext& context, const std::string& number) {
  const Reader& reader = context.reader();
  const std::string of = "=" + Reader::text_literal(number);
  const Rows header = reader.rows("Select * From STKCHECKHD Where CHECKNO" + of);
  if (header.rows.empty()) return false;
  Table lines{"lines",
              "Counted",
              {{"part"}, {"name"}, number_column("quantity"), {"unit"}, {"location"}, {"notes"}},
              {}};
  lines.rows =
      reader
          .rows(
              "Select STKCHECKDT.PARTNO,PARTS.PARTNM,STKCHECKDT.QTY,PARTS.UNITNM,STKCHECKDT.LOCATION,"
              "STKCHECKDT.NOTES From STKCHECKDT Left Join PARTS On STKCHECKDT.PARTNO=PARTS.PARTNO"
              " Where STKCHECKDT.CHECKNO" +
              of + " Order By STKCHECKDT.PARTNO")
          .rows;
  Table posted{"postings", "Posted", {{"document"}, {"date"}, number_column("status")}, {}};
  posted.rows =
      reader
          .rows("Select TRANNO,TRANDT,STATUSSN From STKTRANHD Where TRANTYPE='STKCHECKISS' And REFERENCE" +
                of + " Order By TRANNO")
          .rows;
  context.print({header_table(header, context.format()), lines, posted});
  return true;
}

bool show_close(VerbContext& context, const std::string& word) {
  const auto date = automation::parse_date(word);
  if (!date) return false;
  const automation::Date day{std::floor(date->serial)};
  const Reader& reader = context.reader();
  const Rows header = reader.rows("Select * From STKCLOSEHD Where CLOSEDT=" + reader.date_literal(day));
  if (header.rows.empty()) return false;
  context.print({header_table(header, context.format()), summary_table(reader, day)});
  return true;
}

ExitStatus run(VerbContext& context) {
  const std::string& word = context.argument(0);
  if (show_document(context, word) || show_stocktaking(context, word) || show_close(context, word))
    return exit_done;
  throw Refusal("there is no document, no stocktaking and no close '" + word +
                "'; 'list CTranHead', 'list CCheckHead' and 'status' show those there are");
}

}  // namespace

const Verb show_verb{
    .name = "show",
    .arguments = "DOCUMENT",
    .summary = "one document, stocktaking or close with its lines",
    .help =
        "Shows everything about one document, by its number: the header, the lines with the names of their\n"
        "parts, and the shipping note of a shipment. The number of a stocktaking shows what was counted\n"
        "and the documents that its approval has posted; a date shows the close of that date.",
    .options = {},
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
