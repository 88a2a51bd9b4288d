#include <cmath>

#include "client/report/bar_chart.h"
#include "client/report/html.h"
#include "client/report/number_text.h"
#include "client/report/sections.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

HtmlCell value_cell(double value, const ReportWords& words) {
  return {value_text(value, words), plain_number(value)};
}

HtmlCell quantity_cell(double quantity, const ReportWords& words) {
  return {quantity_text(quantity, words), plain_number(quantity)};
}

HtmlCell text_cell(std::string_view text) {
  return {std::string(text), {}};
}

// In place of a table without a row.
std::string nothing(std::string_view text) {
  return "<p>" + escaped(text) + "</p>\n";
}

std::string changes_chart(const MonthReport& report, const ReportWords& words) {
  std::vector<Bar> bars;
  for (const PartChange& change : report.changes) {
    const double by = (change.now - change.before).value;
    const std::string text = signed_value_text(by, words);
    bars.push_back({change.part + " " + change.name, {{by < 0 ? "down" : "up", by, text}}, text});
  }
  return bar_chart("changes-chart", words.largest_changes, bars);
}

}  // namespace

std::string section(std::string_view heading, const std::string& content) {
  return "<section><h2>" + escaped(heading) + "</h2>\n" + content + "</section>\n";
}

std::string figures_section(const MonthReport& report, const ReportWords& words) {
  HtmlTable table(
      "departments",
      {{words.department}, {words.name}, {words.material_type}, {words.quantity, true}, {words.value, true}});
  for (const DepartmentFigures& department : report.departments) {
    for (const auto& [type, figure] : department.by_type)
      table.add_row({text_cell(department.number), text_cell(department.name),
                     text_cell(type_text(report, type, words)), quantity_cell(figure.quantity, words),
                     value_cell(figure.value, words)});
    const Figure sum = department.total();
    table.add_sum({text_cell(department.number), text_cell(department.name), text_cell(words.total),
                   quantity_cell(sum.quantity, words), value_cell(sum.value, words)});
  }
  const Figure sum = report.total();
  table.add_sum(
      {text_cell(words.total), {}, {}, quantity_cell(sum.quantity, words), value_cell(sum.value, words)});
  return section(words.by_department_and_type, table.text());
}

std::string types_section(const MonthReport& report, const ReportWords& words) {
  HtmlTable table("types", {{words.material_type}, {words.quantity, true}, {words.value, true}});
  for (const auto& [type, figure] : report.by_type())
    table.add_row({text_cell(type_text(report, type, words)), quantity_cell(figure.quantity, words),
                   value_cell(figure.value, words)});
  const Figure sum = report.total();
  table.add_sum({text_cell(words.total), quantity_cell(sum.quantity, words), value_cell(sum.value, words)});
  return section(words.by_material_type, table.text());
}

std::string changes_section(const MonthReport& report, const ReportWords& words) {
  if (report.changes.empty()) return section(words.largest_changes, nothing(words.no_changes));
  HtmlTable table("changes", {{words.part},
                              {words.name},
                              {words.quantity, true},
                              {words.before, true},
                              {words.now, true},
                              {words.change_of_value, true}});
  for (const PartChange& change : report.changes) {
    const double quantity = (change.now - change.before).quantity;
    const double value = (change.now - change.before).value;
    table.add_row({text_cell(change.part),
                   text_cell(change.name),
                   {quantity_text(quantity, words), plain_number(quantity)},
                   value_cell(change.before.value, words),
                   value_cell(change.now.value, words),
                   {signed_value_text(value, words), plain_number(value)}});
  }
  return section(words.largest_changes, changes_chart(report, words) + table.text());
}

std::string differences_section(const MonthReport& report, const ReportWords& words) {
  if (report.differences.empty())
    return section(words.stocktaking_differences, nothing(words.no_stocktakings));
  HtmlTable table("stocktakings", {{words.date},
                                   {words.stocktaking},
                                   {words.document},
                                   {words.department},
                                   {words.lines, true},
                                   {words.quantity, true},
                                   {words.value, true}});
  Figure sum;
  for (const PostedDifference& posted : report.differences) {
    table.add_row({text_cell(day_text(posted.date)), text_cell(posted.stocktaking),
                   text_cell(posted.document), text_cell(posted.department),
                   quantity_cell(static_cast<double>(posted.lines), words),
                   quantity_cell(posted.figure.quantity, words), value_cell(posted.figure.value, words)});
    sum += posted.figure;
  }
  table.add_sum({text_cell(words.total),
                 {},
                 {},
                 {},
                 {},
                 quantity_cell(sum.quantity, words),
                 value_cell(sum.value, words)});
  return section(words.stocktaking_differences, table.text());
}

std::string costs_section(const MonthReport& report, const ReportWords& words) {
  if (report.without_cost.empty()) return section(words.parts_without_cost, nothing(words.all_have_costs));
  HtmlTable table("without-cost", {{words.part}, {words.name}, {words.quantity, true}});
  for (const PartWithoutCost& part : report.without_cost)
    table.add_row({text_cell(part.part), text_cell(part.name), quantity_cell(part.quantity, words)});
  return section(words.parts_without_cost, table.text());
}

}  // namespace tallyra::client
