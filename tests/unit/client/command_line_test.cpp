#include "client/command_line.h"

#include <gtest/gtest.h>

#include "client/value_text.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

using Texts = std::vector<std::string>;

std::variant<TextRequest, CallRequest> parsed(const Texts& words) {
  return parse_command_line(words, [](const std::string&) { return std::nullopt; });
}

CallRequest request_of(const Texts& words) {
  return std::get<CallRequest>(parsed(words));
}

std::string arguments_of(const Texts& words) {
  std::string text;
  for (const auto& argument : request_of(words).call.arguments) text += "[" + shown_text(argument) + "]";
  return text;
}

TEST(CommandLine, TakesOptionsBeforeBetweenAndBehindTheCall) {
  for (const Texts& words :
       {Texts{"--db", "DSN=x", "--user", "ANNA", "--language", "zh", "--json", "CRevAddr", "Delete", "A1"},
        Texts{"CRevAddr", "--db=DSN=x", "Delete", "--user=ANNA", "A1", "--language=zh", "--json"}}) {
    const CallRequest request = request_of(words);
    EXPECT_EQ(request.call.prog_id, "Tallyra.CRevAddr");
    EXPECT_EQ(request.call.member, "Delete");
    EXPECT_EQ(request.call.arguments.size(), 1U);
    EXPECT_EQ(request.session.connection_string, "DSN=x");
    EXPECT_EQ(request.session.user, "ANNA");
    EXPECT_EQ(request.session.language, "zh");
    EXPECT_EQ(request.session.database_kind, "MSACCESS");
    EXPECT_FALSE(request.session.kind_given);
    EXPECT_TRUE(request.json);
  }
}

TEST(CommandLine, LeavesTheSessionAloneWhereNothingIsSaid) {
  const CallRequest request = request_of({"CRevAddr", "Delete", "A1"});
  EXPECT_FALSE(request.session.connection_string.has_value());
  EXPECT_FALSE(request.session.user.has_value());
  EXPECT_FALSE(request.session.language.has_value());
  EXPECT_FALSE(request.json);
  EXPECT_FALSE(request.progress.has_value());
}

TEST(CommandLine, KnowsAnEmptyUserFromNone) {
  EXPECT_EQ(request_of({"--user", "", "CRevAddr", "Delete"}).session.user, "");
}

TEST(CommandLine, TakesTheDatabaseKindInAnyCase) {
  for (const char* kind : {"MSSQLSERVER", "mssqlserver"}) {
    const CallRequest request = request_of({"--kind", kind, "CRevAddr", "Delete"});
    EXPECT_EQ(request.session.database_kind, "MSSQLSERVER");
    EXPECT_TRUE(request.session.kind_given);
  }
  const std::string text = usage_error_text([] { parsed({"--kind", "ORACLE", "CRevAddr", "X"}); });
  EXPECT_NE(text.find("--kind"), std::string::npos) << text;
  EXPECT_NE(text.find("MSACCESS"), std::string::npos) << text;
}

TEST(CommandLine, LetsProgressBeAskedForOrForbidden) {
  EXPECT_EQ(request_of({"--progress", "CRevAddr", "Delete"}).progress, true);
  EXPECT_EQ(request_of({"--no-progress", "CRevAddr", "Delete"}).progress, false);
  EXPECT_THROW(request_of({"--progress", "--no-progress", "CRevAddr", "Delete"}), UsageError);
}

TEST(CommandLine, PassesArgumentsAsTheyAre) {
  const struct {
    Texts words;
    const char* arguments;
  } rows[] = {
      {{"X.Y", "Z", "-5", "-0.5", "-.5", "n:-3"}, "[-5][-0.5][-.5][-3]"},
      {{"X.Y", "Z", "-"}, "[-]"},
      {{"X.Y", "Z", "", "x"}, "[][x]"},
      {{"X.Y", "Z", "[a,b]", "{c}", "%%", "++"}, "[[a,b]][{c}][%%][++]"},
      {{"X.Y", "Z", "a", "--", "--json", "-x", "--", "-5"}, "[a][--json][-x][--][-5]"},
      {{"--", "X.Y", "Z", "--json"}, "[--json]"},
      {{"X.Y", "Z", "Select * From A Where B='--'"}, "[Select * From A Where B='--']"},
      {{"X.Y", "Z", "仓库"}, "[仓库]"},
  };
  for (const auto& row : rows) EXPECT_EQ(arguments_of(row.words), row.arguments);
}

TEST(CommandLine, RefusesOptionsItDoesNotKnow) {
  for (const char* option : {"--jason", "-x", "--users=ANNA"})
    EXPECT_EQ(usage_error_text([&] {
                parsed({"CRevAddr", "Delete", option, "A1"});
              }),
              std::string("there is no option ") + option + "; to pass it as an argument put -- before it");
}

TEST(CommandLine, RefusesAnOptionWithoutItsValueOrGivenTwice) {
  EXPECT_NE(usage_error_text([] {
              parsed({"CRevAddr", "Delete", "--user"});
            }).find("--user"),
            std::string::npos);
  EXPECT_NE(usage_error_text([] {
              parsed({"--user", "A", "--user", "B", "CRevAddr", "Delete"});
            }).find("--user"),
            std::string::npos);
}

TEST(CommandLine, HelpNamesOptionsClassesValuesExamplesAndExitStatus) {
  for (const Texts& words : {Texts{"--help"}, Texts{"-h"}, Texts{"CRevAddr", "--help"}}) {
    const std::string help = std::get<TextRequest>(parsed(words)).text;
    for (const char* part : {"--db", "--user", "--language", "--kind", "--json", "--progress", "--list",
                             "CStockClose", "CStkShipNote", "n:12.5", "null:", "Examples:", "Exit status:"})
      EXPECT_NE(help.find(part), std::string::npos) << part;
  }
}

TEST(CommandLine, ListShowsClassesWithTheirMembers) {
  const std::string list = std::get<TextRequest>(parsed({"--list"})).text;
  EXPECT_NE(list.find("Tallyra.CRevAddr"), std::string::npos);
  EXPECT_NE(list.find("  Update pCloseDT COLUMN=value... strOprTag\n"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::client
