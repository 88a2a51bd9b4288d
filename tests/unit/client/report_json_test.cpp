#include "client/report_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "automation/collection.h"

namespace tallyra::client {
namespace {

using automation::Currency;
using automation::Date;
using automation::Decimal;
using automation::Missing;
using automation::Null;
using automation::Value;
using Json = nlohmann::ordered_json;

class ArrayOfBytes : public automation::OpaqueData {
 public:
  std::string_view kind() const override { return "array"; }
};

std::string dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

TEST(ReportJson, HoldsWhatTheTablesShow) {
  Outcome outcome;
  outcome.prog_id = "Tallyra.CRevAddr";
  outcome.member = "Read";
  outcome.result = 100.0F;
  outcome.error_number = 0;
  outcome.fields = {{"ADDRNO", "A1"}, {"QTY", 12.5}, {"ADDRNO", "A2"}, {"ADDRNO", "A3"}};
  outcome.returned_arguments = {{3, 120.0}};
  const std::string text = report_json(outcome);
  EXPECT_EQ(text.back(), '\n');
  EXPECT_EQ(dumped(Json::parse(text)),
            R"({"class":"Tallyra.CRevAddr","member":"Read","success":true,"result":100,"errNumber":0,)"
            R"("errDescription":"","arguments":{"3":120},)"
            R"("fields":{"ADDRNO":"A1","QTY":12.5,"ADDRNO#2":"A2","ADDRNO#3":"A3"}})");
}

TEST(ReportJson, TellsAFailure) {
  Outcome outcome;
  outcome.prog_id = "Tallyra.CStockClose";
  outcome.member = "Insert";
  outcome.result = 0.0F;
  outcome.error_number = 10000004;
  outcome.error_description = "已经存在 \"2024\"";
  const Json json = Json::parse(report_json(outcome));
  EXPECT_EQ(json["success"], false);
  EXPECT_EQ(json["result"], 0);
  EXPECT_EQ(json["errNumber"], 10000004);
  EXPECT_EQ(json["errDescription"], "已经存在 \"2024\"");
  EXPECT_TRUE(json["fields"].empty());
}

TEST(ReportJson, TellsTheErrorThatLeftTheObject) {
  Outcome outcome;
  outcome.raised = automation::Error(438, "no member");
  outcome.error_number = 10000112;
  const Json json = Json::parse(report_json(outcome));
  EXPECT_EQ(json["success"], false);
  EXPECT_TRUE(json["result"].is_null());
  EXPECT_EQ(dumped(json["raised"]), R"({"number":438,"description":"no member"})");
  EXPECT_EQ(json["errNumber"], 10000112);
}

TEST(ReportJson, HasNoErrorFieldsForAClassWithoutThem) {
  const Json json = Json::parse(report_json(Outcome{}));
  EXPECT_TRUE(json["errNumber"].is_null());
  EXPECT_TRUE(json["errDescription"].is_null());
}

TEST(ReportJson, WritesEveryKindOfValue) {
  const struct {
    Value value;
    const char* json;
  } rows[] = {
      {Value(), "null"},
      {Null{}, "null"},
      {Missing{}, "null"},
      {true, "true"},
      {std::uint8_t{200}, "200"},
      {std::int16_t{-5}, "-5"},
      {std::int32_t{-2147483647}, "-2147483647"},
      {std::int64_t{9007199254740993}, "9007199254740993"},
      {0.1F, "0.1"},
      {10000003.0F, "10000003"},
      {1.0 / 3, "0.3333333333333333"},
      {12.0, "12"},
      {1e300, "1e+300"},
      {std::numeric_limits<double>::infinity(), "null"},
      {Currency{123400}, R"("12.34")"},
      {*Decimal::parse("0.1234567890123456789"), R"("0.1234567890123456789")"},
      {Date{45322}, R"("2024/01/31")"},
      {Date{45322.75}, R"("2024/01/31 18:00:00")"},
      {"仓库\n", R"("仓库\n")"},
      {"a\xFFz", "\"a\xEF\xBF\xBDz\""},
      {automation::Object(), "null"},
      {automation::make_object<automation::Collection>(), R"({"kind":"object"})"},
      {automation::Opaque(std::make_shared<ArrayOfBytes>()), R"({"kind":"array"})"},
  };
  for (const auto& row : rows) {
    Outcome outcome;
    outcome.result = row.value;
    EXPECT_EQ(dumped(Json::parse(report_json(outcome))["result"]), row.json);
  }
}

}  // namespace
}  // namespace tallyra::client
