#include "client/report/page.h"
#include "client/report/sections.h"
#include "client/rounded.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

automation::Value type_value(MaterialType type) {
  return type ? automation::Value(*type) : automation::Value();
}

Table figures_table(const MonthReport& report) {
  Table table{"departments",
              "By department and material type",
              {{"department"},
               {"name"},
               number_column("type"),
               {"type name"},
               number_column("quantity"),
               number_column("value")},
              {}};
  for (const DepartmentFigures& department : report.departments)
    for (const auto& [type, figure] : department.by_type) {
      const auto name = report.type_names.find(type);
      const Figure shown = figure.shown();
      table.rows.push_back({department.number, department.name, type_value(type),
                            name == report.type_names.end() ? std::string() : name->second, shown.quantity,
                            shown.value});
    }
  return table;
}

Table changes_table(const MonthReport& report) {
  Table table{"changes",
              "Largest changes since the previous close",
              {{"part"},
               {"name"},
               number_column("quantity"),
               number_column("before"),
               number_column("now"),
               number_column("change")},
              {}};
  for (const PartChange& change : report.changes) {
    const Figure by = (change.now - change.before).shown();
    table.rows.push_back({change.part, change.name, by.quantity, change.before.shown().value,
                          change.now.shown().value, by.value});
  }
  return table;
}

Table differences_table(const MonthReport& report) {
  Table table{"stocktakings",
              "Differences of stocktakings",
              {{"date"},
               {"stocktaking"},
               {"document"},
               {"department"},
               number_column("lines"),
               number_column("quantity"),
               number_column("value")},
              {}};
  for (const PostedDifference& posted : report.differences) {
    const Figure shown = posted.figure.shown();
    table.rows.push_back({day_text(posted.date), posted.stocktaking, posted.document, posted.department,
                          static_cast<double>(posted.lines), shown.quantity, shown.value});
  }
  return table;
}

Table costs_table(const MonthReport& report) {
  Table table{"without_cost", "Parts without a cost", {{"part"}, {"name"}, number_column("quantity")}, {}};
  for (const PartWithoutCost& part : report.without_cost)
    table.rows.push_back({part.part, part.name, rounded(part.quantity, figure_decimals)});
  return table;
}

}  // namespace

std::vector<Table> report_tables(const MonthReport& report) {
  return {figures_table(report), changes_table(report), differences_table(report), costs_table(report)};
}

}  // namespace tallyra::client
