#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/support/client_program.h"
#include "tests/support/company_database.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {
namespace {

using Json = nlohmann::json;

class Batch : public testing::Test {
 protected:
  std::vector<Json> answers() const {
    std::vector<Json> result;
    std::istringstream out(client_.out());
    for (std::string line; std::getline(out, line);) result.push_back(Json::parse(line));
    return result;
  }

  behaviour::CompanyDatabase company_;
  ClientProgram client_{{"--db", company_.connection_string(), "--user", "ADMIN"}};
};

TEST_F(Batch, AnswersEachLineWithOne) {
  client_.feed(
      R"({"class":"CRevAddr","member":"Insert","arguments":["A1",{"ADDRNO":"A1","ADDRNM":"Harbour"}]})"
      "\n\n"
      R"({"words":["CRevAddr","Read","A1"]})"
      "\r\n"
      R"({"class":"CRevAddr","member":"Read","arguments":["A9"]})");
  EXPECT_EQ(client_.run({"batch"}), exit_failed);
  const auto lines = answers();
  ASSERT_EQ(lines.size(), 3U) << client_.all();
  EXPECT_EQ(lines[0].at("success"), true);
  EXPECT_EQ(lines[1].at("line"), 3);
  EXPECT_EQ(lines[1].at("fields").at("ADDRNM"), "Harbour");
  EXPECT_EQ(lines[2].at("errNumber"), 10000003);
}

TEST_F(Batch, TellsWhatIsNoCallAndGoesOn) {
  client_.feed(
      "not JSON\n"
      R"({"class":"CNoSuchClass","member":"Read"})"
      "\n"
      R"({"class":"CRevAddr","member":"NoSuchMember"})"
      "\n"
      R"({"class":"CRevAddr","member":"Delete","arguments":["A9"]})"
      "\n"
      R"({"class":"CCheckDetail","member":"Insert","arguments":["C1","P1",{"QTY":"1,5"}]})"
      "\n"
      R"({"class":"CRevAddr","member":"Insert","arguments":["A1",{"ADDRNO":"A1"}]})"
      "\n");
  EXPECT_EQ(client_.run({"batch"}), exit_failed);
  const auto lines = answers();
  ASSERT_EQ(lines.size(), 6U) << client_.all();
  EXPECT_NE(lines[0].at("usage").get<std::string>().find("no JSON"), std::string::npos);
  EXPECT_NE(lines[1].at("usage").get<std::string>().find("CNoSuchClass"), std::string::npos);
  EXPECT_NE(lines[2].at("usage").get<std::string>().find("NoSuchMember"), std::string::npos);
  EXPECT_NE(lines[3].at("complaints")[0].get<std::string>().find("no such row"), std::string::npos);
  EXPECT_EQ(lines[3].at("result"), 100);
  EXPECT_NE(lines[4].at("usage").get<std::string>().find("'1,5' is no number"), std::string::npos);
  EXPECT_EQ(lines[5].at("success"), true);
}

TEST_F(Batch, MakesThousandsOfCallsInOneProcess) {
  constexpr int calls = 2000;
  std::string input;
  for (int i = 0; i < calls; ++i)
    input += R"({"class":"CRevAddr","member":"Read","arguments":["A1"]})"
             "\n";
  company_.run({"INSERT INTO REVADDR(ADDRNO) VALUES('A1')"});
  client_.feed(input);
  EXPECT_EQ(client_.run({"batch"}), exit_done);
  EXPECT_EQ(answers().size(), static_cast<std::size_t>(calls));
}

TEST_F(Batch, ReadsAFile) {
  const tests::TestFolder folder;
  const std::string file = folder.file("calls.jsonl");
  std::ofstream(file) << R"({"words":["CRevAddr","Read","A1"]})"
                      << "\n";
  EXPECT_EQ(client_.run({"batch", file}), exit_failed);
  EXPECT_EQ(answers().size(), 1U);
  EXPECT_EQ(client_.run({"batch", folder.path()}), exit_wrong_usage);
  EXPECT_NE(client_.error().find("is a directory"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::client
