#include "client/month_end/findings/all_findings.h"
#include "client/value_text.h"

// Where the masters and the documents do not go together.
namespace tallyra::client {
namespace {

std::string movements_of(const CloseCase& close) {
  return within(close.reader, close.period) + std::string(no_company_documents) +
         std::string(no_unapproved_close_documents);
}

// Documents count in the department they come from. A transfer need not name one, and counts where it goes
// to; the other department of any other document is no department of the company.
Found look_at_departments(const CloseCase& close) {
  const std::string in_period = movements_of(close);
  const auto missing = [&](const std::string& column, const std::string& types) {
    return found_rows(close.reader,
                      "Select STKTRANHD." + column +
                          ",Count(*) As N From STKTRANHD Left Join DEPARTS On STKTRANHD." + column +
                          "=DEPARTS.DEPTNO Where DEPARTS.DEPTNO Is Null" + types + in_period +
                          " Group By STKTRANHD." + column + " Order By STKTRANHD." + column,
                      {"department", "documents:"});
  };
  Found found = missing("DEPTNOFR",
                        " And (STKTRANHD.TRANTYPE<>'STK024MRPL' Or"
                        " (STKTRANHD.DEPTNOFR Is Not Null And STKTRANHD.DEPTNOFR<>''))");
  const Found incoming = missing("DEPTNOTO", " And STKTRANHD.TRANTYPE='STK024MRPL'");
  found.count += incoming.count;
  for (const std::string& text : incoming.first)
    if (found.first.size() < first_rows) found.first.push_back("transfers to " + text);
  return found;
}

Found look_at_parts(const CloseCase& close) {
  return found_rows(close.reader,
                    "Select STKTRANDT.PARTNO,Count(*) As N From (STKTRANDT"
                    " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO)"
                    " Left Join PARTS On STKTRANDT.PARTNO=PARTS.PARTNO Where PARTS.PARTNO Is Null" +
                        movements_of(close) + " Group By STKTRANDT.PARTNO Order By STKTRANDT.PARTNO",
                    {"part", "lines:"});
}

Found look_at_material_types(const CloseCase& close) {
  Found found;
  close.reader.each_row("Select PARTNO From PARTS Where MTYPESN Is Null Order By PARTNO",
                        [&](const Row& row) {
                          const std::string part = shown_text(row[0]);
                          if (!close.gathered.parts.contains(part)) return;
                          if (++found.count <= static_cast<std::int64_t>(first_rows))
                            found.first.push_back("part " + part);
                        });
  return found;
}

}  // namespace

const Finding unknown_departments{
    "unknown-departments", Severity::error,
    "documents of departments that are not in the masters: the close would lose them",
    "enter the department, or mend the documents", look_at_departments};
const Finding unknown_parts{
    "unknown-parts", Severity::error,
    "lines of parts that are not in the masters: the company document would lose them",
    "enter the part, or mend the lines", look_at_parts};
const Finding no_material_type{"no-material-type", Severity::warning, "parts that move have no material type",
                               "enter the type of each part", look_at_material_types};

}  // namespace tallyra::client
