#include "standins/corvane/connection_string.h"

#include <gtest/gtest.h>

namespace tallyra::standins::corvane {
namespace {

TEST(ConnectionString, GivesValuesByKeyWhateverItsCase) {
  const ConnectionString text(
      " Provider = MSDASQL ;DRIVER={SQLite3};;Database={/data/a;b}}c.db};Server=x;server=y;rest");
  EXPECT_EQ(text.value("provider"), "MSDASQL");
  EXPECT_EQ(text.value("Driver"), "SQLite3");
  EXPECT_EQ(text.value("DATABASE"), "/data/a;b}c.db");
  EXPECT_EQ(text.value("Server"), "x");
  EXPECT_EQ(text.value("Timeout"), "");
}

TEST(ConnectionString, NeverReadsBeyondABrokenText) {
  for (const char* text : {"", ";", "=", "a", "a=", "a={", "a={b", "a={b}}", "=;=", "a={b}c;d=e", "a=\"",
                           "a='b\"", "a=\"\"\"", "a='b'c;d=e"}) {
    const ConnectionString parsed(text);
    EXPECT_EQ(ConnectionString(parsed.text()).text(), parsed.text()) << text;
  }
}

TEST(ConnectionString, ReadsWhatStandsBetweenQuotes) {
  const ConnectionString text(
      "Provider=MSDASQL; Extended Properties = \"DRIVER={SQLite3};Database=/data/x.db;PWD=say \"\"a\"\"\" ;"
      "Data Source='it''s; stock';Open=\"x");
  EXPECT_EQ(text.value("Extended Properties"), "DRIVER={SQLite3};Database=/data/x.db;PWD=say \"a\"");
  EXPECT_EQ(text.value("Data Source"), "it's; stock");
  EXPECT_EQ(text.value("Open"), "\"x");
}

TEST(ConnectionString, AValueTakesThePlaceOfEveryOther) {
  const struct {
    const char* before;
    const char* value;
    const char* after;
  } cases[] = {
      {"DRIVER={SQLite3};Database=/a.db;Timeout=5", "/b.db", "DRIVER={SQLite3};Timeout=5;Database=/b.db"},
      {"DSN=stock", "/b c.db", "DSN=stock;Database=/b c.db"},
      {"database={/a;b};DATABASE=x", "/a;}b.db", "Database={/a;}}b.db}"},
      {"DSN=stock", " a.db", "DSN=stock;Database={ a.db}"},
      {"", "", "Database="},
  };
  for (const auto& row : cases) {
    ConnectionString text(row.before);
    text.set("Database", row.value);
    EXPECT_EQ(text.text(), row.after);
    EXPECT_EQ(text.value("DATABASE"), row.value);
  }
}

TEST(ConnectionString, AStringWithinAStringKeepsItsQuotes) {
  ConnectionString text("Provider=MSDASQL");
  text.set_quoted("Extended Properties", "DSN=stock;PWD={a\"b}");
  EXPECT_EQ(text.text(), "Provider=MSDASQL;Extended Properties=\"DSN=stock;PWD={a\"\"b}\"");
  EXPECT_EQ(text.value("Extended Properties"), "DSN=stock;PWD={a\"b}");
}

}  // namespace
}  // namespace tallyra::standins::corvane
