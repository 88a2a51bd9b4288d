#include "client/client.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "automation/convert.h"
#include "tests/unit/client/client_run.h"

namespace tallyra::client {
namespace {

using automation::Arguments;
using automation::Value;

TEST_F(Client, PrintsTheReportAndEndsWithZeroOnSuccess) {
  script_class("Tallyra.CRevAddr", "Read", [](Arguments arguments) -> Value {
    automation::to_object(arguments[1].get()).call("Add", "ADDRNO");
    automation::to_object(arguments[2].get()).call("Add", "A1");
    return 100.0F;
  });
  EXPECT_EQ(run({"--user", "ANNA", "CRevAddr", "Read", "A1"}), exit_done);
  EXPECT_EQ(out_.str(),
            "Class           Tallyra.CRevAddr\n"
            "Member          Read\n"
            "Result          100\n"
            "ErrNumber       0\n"
            "ErrDescription\n"
            "\n"
            "Field   Type  Value\n"
            "------  ----  -----\n"
            "ADDRNO  text  A1\n");
  EXPECT_EQ(error_.str(), "");
  EXPECT_EQ(log_,
            (ScriptedObject::Log{"put UserID ANNA", "put SystemDatabase MSACCESS",
                                 "call Read A1 (object) (object)", "get ErrNumber", "get ErrDescription"}));
}

TEST_F(Client, EndsWithOneWhenTheCallIsRefusedAndStillReports) {
  script_class(
      "Tallyra.CRevAddr", "Read", [](Arguments) -> Value { return 100.0F; }, 10000003, "No such record");
  EXPECT_EQ(run({"--json", "CRevAddr", "Read", "A9"}), exit_failed);
  const auto json = nlohmann::json::parse(out_.str());
  EXPECT_EQ(json["errNumber"], 10000003);
  EXPECT_EQ(json["errDescription"], "No such record");
  EXPECT_EQ(json["success"], false);
  EXPECT_EQ(error_.str(), "");
}

TEST_F(Client, EndsWithOneAndTheErrorWhenOneLeavesTheObject) {
  script_class(
      "Tallyra.CRevAddr", "Delete", [](Arguments) -> Value { throw automation::Error(3704, "not open"); },
      10000112, "closed period");
  EXPECT_EQ(run({"CRevAddr", "Delete", "A1"}), exit_failed);
  EXPECT_EQ(out_.str(),
            "Class           Tallyra.CRevAddr\n"
            "Member          Delete\n"
            "ErrNumber       10000112\n"
            "ErrDescription  closed period\n");
  EXPECT_EQ(error_.str(), "tallyra-client: the call failed with error 3704: not open\n");
}

TEST_F(Client, EndsWithTwoAndAnExplanationOnWrongUsage) {
  script_class("Tallyra.CRevAddr", "Read", [](Arguments) -> Value { throw automation::Error(450); });
  const struct {
    std::vector<std::string> words;
    const char* message;
  } rows[] = {
      {{"CUnknown", "Read"}, "there is no class Tallyra.CUnknown; "},
      {{"CRevAddr", "Raed"}, "Tallyra.CRevAddr has no member Raed; its members are Read, "},
      {{"CRevAddr", "Read", "A1", "x"},
       "Tallyra.CRevAddr Read: Wrong number of arguments or invalid property assignment (4 arguments were "
       "given); write: Read cAddrNo @\n"},
      {{"CRevAddr", "Read", "i:x"}, "'i:x' is no valid value: "},
      {{"--bad", "CRevAddr", "Read"}, "there is no option --bad; "},
      {{}, "no verb and no class given; the verbs are init, "},
  };
  for (const auto& row : rows) {
    out_.str("");
    error_.str("");
    EXPECT_EQ(run(row.words), exit_wrong_usage);
    EXPECT_EQ(out_.str(), "");
    EXPECT_TRUE(error_.str().starts_with(std::string("tallyra-client: ") + row.message)) << error_.str();
    EXPECT_TRUE(error_.str().ends_with("\nTry 'tallyra-client --help'.\n")) << error_.str();
  }
}

TEST_F(Client, PrintsHelpAndListOnTheOrdinaryOutput) {
  EXPECT_EQ(run({"--help"}), exit_done);
  EXPECT_NE(out_.str().find("Usage:"), std::string::npos);
  EXPECT_EQ(run({"--list"}), exit_done);
  EXPECT_NE(out_.str().find("Tallyra.CStockClose"), std::string::npos);
  EXPECT_EQ(error_.str(), "");
}

}  // namespace
}  // namespace tallyra::client
