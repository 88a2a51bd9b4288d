#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/transcript/stage/fields.h"
#include "tests/transcript/stage/outcome.h"
#include "tests/transcript/stage/stage.h"

namespace tallyra::stockcheck_test {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;
using stage::trapped;

inline const Outcome missing{100, 10000003, "text of Msg10000003"};
// Rights that are none: a right is the number 1 and nothing else.
inline const Value no_rights[] = {0, 2, -1, 1.5, Null{}, true};

// The classes of stocktakings on a stage of each kind of database.
class CheckStage : public testing::TestWithParam<const char*> {
 protected:
  Outcome call_head(const char* member, const Value& number = "S1") {
    const Object head = stage.client("CCheckHead");
    Value key = number;
    if (std::string_view(member) == "Delete") return outcome_of(head, head.call(member, key));
    return outcome_of(head, head.call(member, ref(key), ref(fields.names), ref(fields.values)));
  }
  Outcome update_head(const char* tag, const Value& number = "S1") {
    const Object head = stage.client("CCheckHead");
    Value operation = tag;
    return outcome_of(head,
                      head.call("Update", number, ref(fields.names), ref(fields.values), ref(operation)));
  }
  Outcome call_detail(const char* member, const Value& number = "S1", const Value& part_number = "P1") {
    const Object detail = stage.client("CCheckDetail");
    Value check = number;
    Value part = part_number;
    if (std::string_view(member) == "Delete")
      return outcome_of(detail, detail.call(member, ref(check), ref(part)));
    return outcome_of(detail,
                      detail.call(member, ref(check), ref(part), ref(fields.names), ref(fields.values)));
  }
  bool tells(const std::string& line) const {
    return stage.transcript().find(line + "\n") != std::string::npos;
  }

  Stage stage{GetParam()};
  Fields fields{{"NOTES", "x"}};
};

#define TALLYRA_ON_EVERY_KIND(fixture)                                \
  INSTANTIATE_TEST_SUITE_P(                                           \
      Kinds, fixture, testing::Values("MSACCESS", "MSSQLSERVER", ""), \
      [](const auto& param) { return *param.param ? std::string(param.param) : "None"; })

}  // namespace tallyra::stockcheck_test
