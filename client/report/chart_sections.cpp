#include <cmath>

#include "client/report/bar_chart.h"
#include "client/report/html.h"
#include "client/report/number_text.h"
#include "client/report/sections.h"

// The charts of the departments: a bar for each, in pieces by material type.
namespace tallyra::client {
namespace {

constexpr std::size_t colours = 6;

// What a chart shows of a figure, and how it is written.
struct Shown {
  double Figure::*of;
  std::string (*text)(double, const ReportWords&);
};

std::string style_of(const std::map<MaterialType, Figure>& types, MaterialType type) {
  const auto place = std::distance(types.begin(), types.find(type));
  return "s" + std::to_string(static_cast<std::size_t>(place) % colours);
}

std::string key(const MonthReport& report, const ReportWords& words) {
  const auto types = report.by_type();
  std::string text = "<p class=\"key\">";
  for (const auto& [type, figure] : types)
    text += "<span><i class=\"" + style_of(types, type) + "\"></i>" +
            escaped(type_text(report, type, words)) + "</span>";
  return text + "</p>\n";
}

std::vector<Bar> bars_of(const MonthReport& report, const ReportWords& words, const Shown& shown) {
  const auto types = report.by_type();
  std::vector<Bar> bars;
  for (const DepartmentFigures& department : report.departments) {
    Bar bar{department.number + " " + department.name, {}, shown.text(department.total().*shown.of, words)};
    for (const auto& [type, figure] : department.by_type)
      bar.pieces.push_back({style_of(types, type), figure.*shown.of,
                            type_text(report, type, words) + ": " + shown.text(figure.*shown.of, words)});
    bars.push_back(std::move(bar));
  }
  return bars;
}

}  // namespace

std::string value_chart(const MonthReport& report, const ReportWords& words) {
  const auto bars = bars_of(report, words, {&Figure::value, value_text});
  return section(words.value_by_department,
                 key(report, words) + bar_chart("value-chart", words.value_by_department, bars));
}

std::string quantity_chart(const MonthReport& report, const ReportWords& words) {
  const auto bars = bars_of(report, words, {&Figure::quantity, quantity_text});
  return section(words.quantity_by_department,
                 key(report, words) + bar_chart("quantity-chart", words.quantity_by_department, bars));
}

std::string type_text(const MonthReport& report, MaterialType type, const ReportWords& words) {
  if (!type) return std::string(words.no_material_type);
  const auto name = report.type_names.find(type);
  const std::string number = std::to_string(*type);
  return name == report.type_names.end() || name->second.empty() ? number : number + " " + name->second;
}

}  // namespace tallyra::client
