#include "client/setup/advised_command.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

#ifdef _WIN32
constexpr const char* star = "\"*\"";
constexpr const char* blank = "\"ANN SMITH\"";
constexpr const char* server = "\"DSN=stock;PWD=***\"";
#else
constexpr const char* star = "'*'";
constexpr const char* blank = "'ANN SMITH'";
constexpr const char* server = "'DSN=stock;PWD=***'";

TEST(ShellWord, BearsAnApostropheAndWhatAShellWouldTakeForItsOwn) {
  EXPECT_EQ(shell_word("it's"), "'it'\\''s'");
  EXPECT_EQ(shell_word("$HOME"), "'$HOME'");
  EXPECT_EQ(shell_word("~/a;b"), "'~/a;b'");
}
#endif

TEST(ShellWord, HasQuotesWhereItNeedsThem) {
  EXPECT_EQ(shell_word("stock.db"), "stock.db");
  EXPECT_EQ(shell_word("../data/stock-1.db"), "../data/stock-1.db");
  EXPECT_EQ(shell_word("*"), star);
  EXPECT_EQ(shell_word("ANN SMITH"), blank);
  EXPECT_EQ(shell_word("").size(), 2U);
}

TEST(AdvisedCommand, NamesTheDatabaseAsItWasNamedOnTheCommandLine) {
  Session session;
  session.connection_string = "DRIVER={SQLite3};Database=stock.db";
  EXPECT_EQ(advised_command({"grant", "ANNA", "*", "all"}, session),
            std::string("tallyra-client grant ANNA ") + star + " all");
  session.db_word = "stock.db";
  EXPECT_EQ(advised_command({"upgrade"}, session), "tallyra-client upgrade --db stock.db");
}

TEST(AdvisedCommand, ShowsNoPassword) {
  Session session;
  session.db_word = "DSN=stock;PWD=secret";
  EXPECT_EQ(advised_command({"upgrade"}, session), std::string("tallyra-client upgrade --db ") + server);
}

}  // namespace
}  // namespace tallyra::client
