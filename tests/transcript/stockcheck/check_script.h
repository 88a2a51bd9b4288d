#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

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

// The classes of stocktakings on a stage of each kind of database.
class CheckStage : public testing::TestWithParam<const char*> {
 protected:
  Stage stage{GetParam()};
  Fields fields{{"NOTES", "x"}};
};

#define TALLYRA_ON_EVERY_KIND(fixture)                                \
  INSTANTIATE_TEST_SUITE_P(                                           \
      Kinds, fixture, testing::Values("MSACCESS", "MSSQLSERVER", ""), \
      [](const auto& param) { return *param.param ? std::string(param.param) : "None"; })

}  // namespace tallyra::stockcheck_test
