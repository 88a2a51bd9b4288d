#include "client/month_end/summary.h"

#include <algorithm>
#include <cmath>

#include "automation/convert.h"
#include "client/month_end/period.h"
#include "client/month_end/sums.h"
#include "client/rounded.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

std::string of_that_day(const Reader& reader, automation::Date date) {
  return " Where STKTRANHD.TRANDT=" + reader.date_literal(automation::add_days(date, 1)) + " And " +
         std::string(close_documents_only);
}

std::map<std::string, CloseDocument> documents_with_lines(const Reader& reader, automation::Date date) {
  std::map<std::string, CloseDocument> documents;
  reader.each_row(
      "Select STKTRANHD.TRANNO,STKTRANHD.TRANTYPE,STKTRANHD.DEPTNOFR,STKTRANHD.STATUSSN From STKTRANHD" +
          of_that_day(reader, date),
      [&](const Row& row) {
        CloseDocument document{key_text(row[0]), automation::to_text(row[1]) == "STKCLOSEALL",
                               key_text(row[2])};
        document.approved = !row[3].is_null() && automation::to_int32(row[3]) == 1;
        documents.emplace(document.number, document);
      });
  reader.each_row(
      "Select STKTRANHD.TRANNO,Count(*) As N,Sum(STKTRANDT.QTY) As QTY From STKTRANHD"
      " Inner Join STKTRANDT On STKTRANHD.TRANNO=STKTRANDT.TRANNO" +
          of_that_day(reader, date) + " Group By STKTRANHD.TRANNO",
      [&](const Row& row) {
        CloseDocument& document = documents[key_text(row[0])];
        document.lines = automation::to_int32(row[1]);
        document.quantity = number_or_zero(row[2]);
      });
  return documents;
}

// Line by line: the costs of the company document are few, the lines of the departments many.
void add_values(const Reader& reader, automation::Date date,
                std::map<std::string, CloseDocument>& documents) {
  std::map<std::string, double, std::less<>> costs;
  const std::string day = " Where STKTRANHD.TRANDT=" + reader.date_literal(automation::add_days(date, 1));
  const std::string joined = " From STKTRANHD Inner Join STKTRANDT On STKTRANHD.TRANNO=STKTRANDT.TRANNO" +
                             day + " And STKTRANHD.TRANTYPE=";
  reader.each_row("Select STKTRANDT.PARTNO,STKTRANDT.UPRICE" + joined + "'STKCLOSEALL'",
                  [&](const Row& row) { costs[automation::to_text(row[0])] = number_or_zero(row[1]); });
  const auto add = [&](const Row& row) {
    const auto cost = costs.find(automation::to_text(row[1]));
    if (cost != costs.end()) documents[key_text(row[0])].value += number_or_zero(row[2]) * cost->second;
  };
  for (const char* type : {"'STK027CLOSE'", "'STKCLOSEALL'"})
    reader.each_row("Select STKTRANHD.TRANNO,STKTRANDT.PARTNO,STKTRANDT.QTY" + joined + type, add);
}

}  // namespace

std::vector<CloseDocument> close_documents(const Reader& reader, automation::Date date) {
  auto documents = documents_with_lines(reader, date);
  add_values(reader, date, documents);
  std::vector<CloseDocument> result;
  result.reserve(documents.size());
  for (auto& [number, document] : documents) result.push_back(std::move(document));
  std::ranges::stable_sort(result, {}, [](const CloseDocument& document) {
    return std::pair(document.of_company, document.department);
  });
  return result;
}

Table summary_table(const Reader& reader, automation::Date date) {
  Table table{"documents",
              "",
              {{"department"},
               {"name"},
               {"document"},
               number_column("lines"),
               number_column("quantity"),
               number_column("value")},
              {}};
  std::map<std::string, std::string> names;
  for (const Department& department : departments(reader)) names[department.number] = department.name;
  for (const CloseDocument& document : close_documents(reader, date))
    table.rows.push_back({document.of_company ? "company" : document.department, names[document.department],
                          document.number, static_cast<double>(document.lines),
                          rounded(document.quantity, figure_decimals),
                          rounded(document.value, value_decimals)});
  return table;
}

}  // namespace tallyra::client
