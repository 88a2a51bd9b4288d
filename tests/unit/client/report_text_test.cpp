#include "client/report_text.h"

#include <gtest/gtest.h>

#include "automation/collection.h"

namespace tallyra::client {
namespace {

using automation::Date;
using automation::Null;
using automation::Value;

Outcome outcome_of(Value result, std::optional<double> number, std::string description) {
  Outcome outcome;
  outcome.prog_id = "Tallyra.CRevAddr";
  outcome.member = "Read";
  outcome.result = std::move(result);
  outcome.error_number = number;
  outcome.error_description = std::move(description);
  return outcome;
}

TEST(ReportText, ShowsResultAndErrorFields) {
  EXPECT_EQ(report_text(outcome_of(100.0F, 10000003, "No such record")),
            "Class           Tallyra.CRevAddr\n"
            "Member          Read\n"
            "Result          100\n"
            "ErrNumber       10000003\n"
            "ErrDescription  No such record\n");
  EXPECT_EQ(report_text(outcome_of(12.25, 0, "")),
            "Class           Tallyra.CRevAddr\n"
            "Member          Read\n"
            "Result          12.25\n"
            "ErrNumber       0\n"
            "ErrDescription\n");
  EXPECT_EQ(report_text(outcome_of("text", std::nullopt, "")),
            "Class   Tallyra.CRevAddr\n"
            "Member  Read\n"
            "Result  text\n");
}

TEST(ReportText, AlignsFieldsAlsoBehindWideCharacters) {
  Outcome outcome = outcome_of(100.0F, 0, "");
  outcome.fields = {{"ADDRNO", "A1"},          {"地址", "港口 一号"}, {"QTY", 12.5},
                    {"EDITDT", Date{45322.5}}, {"NOTES", Null{}},     {"FEEDBACK", Value()}};
  EXPECT_EQ(report_text(outcome),
            "Class           Tallyra.CRevAddr\n"
            "Member          Read\n"
            "Result          100\n"
            "ErrNumber       0\n"
            "ErrDescription\n"
            "\n"
            "Field     Type    Value\n"
            "--------  ------  -------------------\n"
            "ADDRNO    text    A1\n"
            "地址      text    港口 一号\n"
            "QTY       double  12.5\n"
            "EDITDT    date    2024/01/31 12:00:00\n"
            "NOTES     null    NULL\n"
            "FEEDBACK  empty\n");
}

TEST(ReportText, ContinuesLinesUnderTheirColumnAndDefusesControlCharacters) {
  Outcome outcome = outcome_of(100.0F, std::nullopt, "");
  outcome.fields = {{"NOTES", "first\r\nsecond"}, {"X", "\x1B[2J"}};
  EXPECT_EQ(report_text(outcome),
            "Class   Tallyra.CRevAddr\n"
            "Member  Read\n"
            "Result  100\n"
            "\n"
            "Field  Type  Value\n"
            "-----  ----  -------\n"
            "NOTES  text  first\n"
            "             second\n"
            "X      text  \\x1B[2J\n");
}

TEST(ReportText, ListsChangedArgumentsByPosition) {
  Outcome outcome = outcome_of(100.0, std::nullopt, "");
  outcome.returned_arguments = {{3, 120.0}, {12, automation::make_object<automation::Collection>()}};
  EXPECT_EQ(report_text(outcome),
            "Class   Tallyra.CRevAddr\n"
            "Member  Read\n"
            "Result  100\n"
            "\n"
            "Argument  Type    Value\n"
            "--------  ------  --------\n"
            "3         double  120\n"
            "12        object  (object)\n");
}

TEST(ReportText, WritesErrorNumbersAsWholeNumbers) {
  const struct {
    double number;
    const char* text;
  } rows[] = {{10000112, "10000112"}, {-2147217920, "-2147217920"}, {3705, "3705"}, {1.5, "1.5"}};
  for (const auto& row : rows) {
    const std::string text = report_text(outcome_of(0.0F, row.number, "x"));
    EXPECT_NE(text.find("\nErrNumber       " + std::string(row.text) + "\n"), std::string::npos) << text;
  }
}

TEST(ReportText, NamesWhatHasNoText) {
  const struct {
    Value value;
    const char* text;
  } rows[] = {
      {automation::Object(), "(no object)"},
      {automation::make_object<automation::Collection>(), "(object)"},
      {Date{1e9}, "(date without a text)"},
      {Null{}, "NULL"},
  };
  for (const auto& row : rows)
    EXPECT_NE(
        report_text(outcome_of(row.value, 0, "")).find("\nResult          " + std::string(row.text) + "\n"),
        std::string::npos)
        << row.text;
}

}  // namespace
}  // namespace tallyra::client
