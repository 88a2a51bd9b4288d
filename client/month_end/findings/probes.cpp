#include "automation/convert.h"
#include "client/month_end/findings/all_findings.h"
#include "client/value_text.h"

// Whether this database compares keys as the close takes it to, and compares them at all. Each probe compares
// a column of a table: between two literals a database may compare otherwise.
namespace tallyra::client {
namespace {

// The close walks through two lists of parts at once, in the order in which the database gives them.
Found look_at_order(const CloseCase& close) {
  Found found;
  std::optional<std::string> last;
  close.reader.each_row("Select PARTNO From STKTRANDT Group By PARTNO Order By PARTNO", [&](const Row& row) {
    std::string part = shown_text(row[0]);
    if (last && part < *last && ++found.count <= static_cast<std::int64_t>(first_rows))
      found.first.push_back("part " + *last + " comes before " + part);
    last = std::move(part);
  });
  return found;
}

// The department in a close document bears a blank behind its number and has to be found without it.
std::optional<std::string> probe(const Reader& reader, const std::string& table, const std::string& column) {
  std::string sample;
  reader.each_row("Select Max(" + column + ") As SAMPLE From " + table,
                  [&](const Row& row) { sample = key_text(row[0]); });
  if (sample.empty()) return std::nullopt;
  const auto count = [&](const std::string& text) {
    return reader.count("Select Count(*) As N From " + table + " Where " + column + "=" +
                        Reader::text_literal(text));
  };
  if (count(sample) == count(sample + " ")) return std::nullopt;
  return "'" + sample + "' and '" + sample + " ' differ in " + table + "." + column;
}

Found look_at_blanks(const CloseCase& close) {
  Found found;
  for (const auto& [table, column] : {std::pair{"DEPARTS", "DEPTNO"}, std::pair{"STKTRANHD", "DEPTNOFR"}})
    if (auto text = probe(close.reader, table, column)) {
      ++found.count;
      found.first.push_back(*std::move(text));
    }
  return found;
}

}  // namespace

const Finding part_order{
    "part-order", Severity::error,
    "this database orders part numbers otherwise than the close does, which would double lines",
    "give the columns PARTNO a binary collation", look_at_order};
const Finding trailing_blanks{
    "trailing-blanks", Severity::error,
    "this database minds blanks behind a department number: the stock that a close carries "
    "over would be lost",
    "give the columns of department numbers a collation that ignores them", look_at_blanks};
const Finding refused_query{
    "refused-query", Severity::error, "the database refuses what this check asks, and so may it the close",
    "where it speaks of a collation, give columns that are compared the same one; 'doctor' names columns "
    "that are missing",
    [](const CloseCase& close) { return close.refused; }};

}  // namespace tallyra::client
