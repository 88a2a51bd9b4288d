#include "tests/behaviour/client/verbs/looking_on_a_server.h"

namespace tallyra::client {
namespace {

TEST_F(LookingOnAServer, AnswersCallsAndRefusesDoubtfulNumbers) {
  for (ClientProgram* client : {&client_, &server_}) {
    client->feed(R"({"class":"CRevAddr","member":"Update","arguments":["A9",{"ADDRNM":"x"}]})"
                 "\n"
                 R"({"class":"CCheckDetail","member":"Update","arguments":["CK","frame",{"QTY":"1,5"}]})"
                 "\nno JSON\n");
    EXPECT_EQ(client->run({"batch"}), exit_failed) << client->all();
    for (const char* told : {"no such row", "QTY holds numbers: '1,5' is no number", "no JSON"})
      EXPECT_NE(client->out().find(told), std::string::npos) << told << "\n" << client->out();
  }
  EXPECT_EQ(client_.out(), server_.out());
}

}  // namespace
}  // namespace tallyra::client
