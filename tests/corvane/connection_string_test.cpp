#include "standins/corvane/connection_string.h"

#include <gtest/gtest.h>

#include "standins/corvane/key_counter.h"

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
  for (const char* text : {"", ";", "=", "a", "a=", "a={", "a={b", "a={b}}", "=;=", "a={b}c;d=e"}) {
    const ConnectionString parsed(text);
    EXPECT_EQ(ConnectionString(parsed.text()).text(), parsed.text()) << text;
  }
}

TEST(ConnectionString, KeyDatabaseOfAnSqliteFileIsAFileBesideIt) {
  const struct {
    const char* connection_string;
    const char* key_database;
  } cases[] = {
      {"DRIVER={SQLite3};Database=/data/x.db", "DRIVER={SQLite3};Database=/data/x.db.keys"},
      {"Provider=MSDASQL;driver=sqlite3;database=/data/x.db;FKSupport=1",
       "Provider=MSDASQL;driver=sqlite3;database=/data/x.db.keys;FKSupport=1"},
      {"Driver={SQLite3 ODBC Driver};Database={/data/a;b.db}",
       "Driver={SQLite3 ODBC Driver};Database={/data/a;b.db.keys}"},
      {"Driver={PostgreSQL Unicode};Database=erp", "Driver={PostgreSQL Unicode};Database=erp"},
      {"DSN=erp", "DSN=erp"},
      {"DRIVER={SQLite3}", "DRIVER={SQLite3}"},
  };
  for (const auto& row : cases) EXPECT_EQ(key_database(row.connection_string), row.key_database);
}

TEST(ConnectionString, TheWaitForALockIsBoundedUnlessItAlreadyIs) {
  EXPECT_EQ(with_bounded_wait("DRIVER={SQLite3};Database=x.db"),
            "DRIVER={SQLite3};Database=x.db;Timeout=30000");
  EXPECT_EQ(with_bounded_wait("DRIVER={SQLite3};timeout=200;Database=x.db"),
            "DRIVER={SQLite3};timeout=200;Database=x.db");
  EXPECT_EQ(with_bounded_wait("Driver={PostgreSQL};Database=erp"), "Driver={PostgreSQL};Database=erp");
}

}  // namespace
}  // namespace tallyra::standins::corvane
