#include "frame/schema/codes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

// What statements spell is what the table of codes has, whoever writes them: the classes, in whole texts or
// with a code put in, and the stand-ins and programs around them.
namespace tallyra::frame::schema {
namespace {

namespace fs = std::filesystem;

const fs::path project = TALLYRA_PROJECT;

std::string content_of(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Everything in these folders with one of these endings, file after file.
std::string content_of(const std::vector<const char*>& folders, const std::set<std::string>& endings) {
  std::string text;
  for (const char* folder : folders)
    for (const auto& entry : fs::recursive_directory_iterator(project / folder))
      if (endings.contains(entry.path().extension().string())) text += content_of(entry.path()) + '\n';
  return text;
}

// The first group of every match.
std::set<std::string> found(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::set<std::string> all;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    all.insert((*match)[1]);
  return all;
}

std::set<std::string> type_codes(const std::string& text) {
  return found(text, "'(STK[A-Z0-9]+)'");
}

std::set<std::string> unknown_type_codes(const std::string& text) {
  std::set<std::string> unknown = type_codes(text);
  for (const auto code : document_type::all) unknown.erase(std::string(code));
  return unknown;
}

std::set<std::string> unknown_statuses(const std::string& text) {
  std::set<std::string> unknown = found(text, "STATUSSN ?(?:=|<>|<|>)+ ?([0-9]+)");
  for (const auto status : status::all) unknown.erase(std::to_string(status));
  return unknown;
}

const std::set<std::string> none;

std::string sources() {
  return content_of({"frame", "close", "transactions", "stockcheck", "masterdata", "standins", "client",
                     "company", "bench", "schema", "samples", "scripts"},
                    {".cpp", ".h", ".vbs", ".js", ".sh"});
}

std::string statements() {
  return content_of({"tests/transcript/statements"}, {".sql"});
}

TEST(Codes, ANewOneInAStatementIsNoticed) {
  EXPECT_EQ(unknown_type_codes("Where TRANTYPE='STK099NEW' Or TRANTYPE='STK024MRPL'"),
            std::set<std::string>{"STK099NEW"});
  EXPECT_EQ(unknown_statuses("Where STATUSSN<>3 And STKTRANHD.STATUSSN=7"), std::set<std::string>{"7"});
}

TEST(Codes, KnowEveryTypeThatTheSourcesSpell) {
  const std::string text = sources();
  EXPECT_EQ(unknown_type_codes(text), none);
  for (const char* spelled : {"STK027CLOSE", "STKCLOSEALL", "STKCHECKISS", "STK010POREV", "STK030SHIPN"})
    EXPECT_TRUE(type_codes(text).contains(spelled)) << spelled;
}

TEST(Codes, KnowEveryTypeThatTheClassesSend) {
  const std::string text = statements();
  EXPECT_EQ(unknown_type_codes(text), none);
  EXPECT_TRUE(type_codes(text).contains("STK021RTNSO")) << "which no source spells in a statement";
}

TEST(Codes, KnowEveryStatusThatIsSpelled) {
  EXPECT_EQ(unknown_statuses(sources() + statements()), none);
}

TEST(Codes, AreAllInTheGlossary) {
  const std::string glossary = content_of(project / "docs" / "glossary.md");
  for (const auto code : document_type::all)
    EXPECT_NE(glossary.find('`' + std::string(code) + '`'), std::string::npos) << code;
}

TEST(Codes, EachStandsForOneThing) {
  auto sorted = document_type::all;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_EQ(std::adjacent_find(sorted.begin(), sorted.end()), sorted.end());
}

}  // namespace
}  // namespace tallyra::frame::schema
