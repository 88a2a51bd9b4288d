#include <gtest/gtest.h>

#include "client/report/sections.h"

namespace tallyra::client {
namespace {

MonthReport two_departments() {
  MonthReport report;
  report.type_names = {{1, "Raw"}};
  report.departments = {{"10", "Store", {{std::nullopt, {1, 0}}, {1, {25, 101.5}}}},
                        {"20", "Assembly", {{2, {4, 100}}}}};
  return report;
}

TEST(ChartSections, HaveABarForEachDepartmentWithAPieceForEachType) {
  const MonthReport report = two_departments();
  const std::string values = value_chart(report, english_words);
  for (const char* text :
       {"10 Store", "20 Assembly", "1 Raw: 101.50", "2: 100.00", "without a material type"})
    EXPECT_NE(values.find(text), std::string::npos) << text << "\n" << values;
  const std::string quantities = quantity_chart(report, english_words);
  for (const char* text : {"1 Raw: 25", "2: 4"})
    EXPECT_NE(quantities.find(text), std::string::npos) << text << "\n" << quantities;
}

TEST(ChartSections, GiveATypeOneColourInAllBarsAndInTheKey) {
  MonthReport report = two_departments();
  report.departments[1].by_type = {{1, {4, 100}}};
  const std::string chart = value_chart(report, english_words);
  EXPECT_NE(chart.find("<i class=\"s1\"></i>1 Raw"), std::string::npos) << chart;
  EXPECT_EQ(chart.find("\"s2\""), std::string::npos) << "there are two types: " << chart;
}

}  // namespace
}  // namespace tallyra::client
