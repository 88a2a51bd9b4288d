#pragma once

#include <string>

#include "client/report/month_report.h"
#include "client/report/words.h"

// The parts of the report page, each a piece of HTML.
namespace tallyra::client {

std::string value_chart(const MonthReport& report, const ReportWords& words);
std::string quantity_chart(const MonthReport& report, const ReportWords& words);
std::string figures_section(const MonthReport& report, const ReportWords& words);
std::string types_section(const MonthReport& report, const ReportWords& words);
std::string changes_section(const MonthReport& report, const ReportWords& words);
std::string differences_section(const MonthReport& report, const ReportWords& words);
std::string costs_section(const MonthReport& report, const ReportWords& words);

// A heading and what is below it.
std::string section(std::string_view heading, const std::string& content);
// "1 Raw material", or what the language calls a part without one.
std::string type_text(const MonthReport& report, MaterialType type, const ReportWords& words);

}  // namespace tallyra::client
