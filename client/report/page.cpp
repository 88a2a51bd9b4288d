#include "client/report/page.h"

#include "automation/convert.h"
#include "client/report/html.h"
#include "client/report/number_text.h"
#include "client/report/sections.h"
#include "client/report/style.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

std::string head(const std::string& title, const ReportWords& words) {
  return "<!DOCTYPE html>\n<html lang=\"" + std::string(words.code) +
         "\">\n<head>\n<meta charset=\"utf-8\">\n"
         "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
         "style-src 'unsafe-inline'\">\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
         escaped(title) + "</title>\n<style>" + std::string(report_style) + "</style>\n</head>\n";
}

std::string state(const MonthReport& report, const ReportWords& words) {
  const bool approved = report.close.approved;
  return "<span class=\"state " + std::string(approved ? "good" : "open") + "\">" +
         escaped(approved ? words.approved : words.not_approved) + "</span>";
}

std::string origin(const MonthReport& report, const ReportWords& words) {
  std::string text;
  if (!report.close.made_by.empty()) {
    text = std::string(words.closed_by) + " " + report.close.made_by;
    if (report.close.made_at)
      text += " " + std::string(words.closed_at) + " " +
              automation::to_text(automation::Value(*report.close.made_at));
    text += ". ";
  }
  text += report.previous ? std::string(words.previous_close) + " " + day_text(*report.previous) + "."
                          : std::string(words.no_previous_close);
  return "<p>" + escaped(text) + "</p>\n";
}

std::string tile(std::string_view name, std::string_view label, const std::string& text, double number) {
  return "<div class=\"tile\"><span>" + escaped(label) + "</span><b id=\"" + std::string(name) +
         "\" data-value=\"" + plain_number(number) + "\">" + escaped(text) + "</b></div>\n";
}

std::string tiles(const MonthReport& report, const ReportWords& words) {
  const Figure sum = report.total();
  const auto departments = static_cast<double>(report.departments.size());
  const auto parts = static_cast<double>(report.parts);
  return "<div class=\"tiles\">\n" +
         tile("total-value", words.value, value_text(sum.value, words), sum.value) +
         tile("total-quantity", words.quantity, quantity_text(sum.quantity, words), sum.quantity) +
         tile("department-count", words.departments, quantity_text(departments, words), departments) +
         tile("part-count", words.parts, quantity_text(parts, words), parts) + "</div>\n";
}

}  // namespace

std::string report_page(const MonthReport& report, const ReportWords& words) {
  const std::string title = std::string(words.title) + " " + day_text(report.close.date);
  return head(title, words) + "<body><main>\n<h1>" + escaped(title) + state(report, words) + "</h1>\n" +
         origin(report, words) + tiles(report, words) + value_chart(report, words) +
         quantity_chart(report, words) + changes_section(report, words) + types_section(report, words) +
         figures_section(report, words) + differences_section(report, words) + costs_section(report, words) +
         "<p>" + escaped(words.value_note) + "</p>\n</main></body>\n</html>\n";
}

}  // namespace tallyra::client
