#include "standins/ado/sqlite/sqlite_source.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "automation/error.h"
#include "tests/support/test_folder.h"

namespace tallyra::standins::ado::test {
namespace {

ConnectionSource source_of(const std::string& text) {
  return read_connection_string(text, "", "", 15);
}

TEST(SqliteSource, IsMeantByTheDriverOrAFileAndByNothingElse) {
  for (const char* const text :
       {"DRIVER={SQLite3};Database=x.db", "driver=sqlite3;database=x.db",
        "Database=x.db;Driver={SQLite3};Timeout=5", "Extended Properties=\"DRIVER={SQLite3};Database=x.db\"",
        "Data Source=/data/x.db", "Data Source=./x", "DRIVER={SQLite3};Database=x.db;BigInt=0",
        "DRIVER={SQLite3}"})
    EXPECT_TRUE(means_sqlite_library(source_of(text))) << text;
  for (const char* const text :
       {"Provider=MSDASQL;DRIVER={SQLite3};Database=x.db",
        "DRIVER={SQLite3};Database=x.db;Provider=MSDASQL.1", "DSN=stock", "DSN=/data/x.db",
        "Data Source=stock", "DRIVER={SQLite3};DSN=stock", "Database=/data/x.db",
        "DRIVER={SQLite3 ODBC Driver};Database=x.db", "DRIVER=/usr/lib/libsqlite3odbc.so;Database=x.db", "",
        "DRIVER={SQLite3};Database=x.db;BigInt=1", "DRIVER={SQLite3};Database=x.db;JDConv=yes",
        "Provider=MSDASQL;Data Source=/data/x.db", "DRIVER={FreeTDS};Data Source=/data/x.db"})
    EXPECT_FALSE(means_sqlite_library(source_of(text))) << text;
}

TEST(SqliteSource, IsAFileWithoutAFolderWhereItIsThere) {
  const tests::TestFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  EXPECT_FALSE(means_sqlite_library(source_of("Data Source=stock.db")));
  { const std::ofstream empty(folder.file("stock.db"), std::ios::app); }
  EXPECT_TRUE(means_sqlite_library(source_of("Data Source=stock.db")));
  std::filesystem::current_path(before);
}

// It may hold a password.
TEST(SqliteSource, IsNoNetworkAddressAndTheMessageDoesNotQuoteIt) {
  for (const char* const text :
       {"Data Source=postgresql://u:secret@h/d", "DRIVER={SQLite3};Database=mysql://u:secret@h/d"}) {
    try {
      read_sqlite_source(source_of(text));
      ADD_FAILURE() << text;
    } catch (const automation::Error& error) {
      EXPECT_EQ(error.description(),
                "The connection string names a network address in place of a database file");
    }
  }
  EXPECT_EQ(read_sqlite_source(source_of("Data Source=file:///data/x.db")).path, "file:///data/x.db");
}

TEST(SqliteSource, HasTheKeywordsOfTheDriver) {
  const SqliteSource plain = read_sqlite_source(source_of("DRIVER={SQLite3};Database=/data/a b.db"));
  EXPECT_EQ(plain.path, "/data/a b.db");
  EXPECT_EQ(plain.busy_time, 100'000);
  EXPECT_EQ(plain.synchronous, "NORMAL");
  EXPECT_EQ(plain.journal_mode, "");
  EXPECT_FALSE(plain.foreign_keys || plain.long_names || plain.may_create || plain.without_transactions);

  const SqliteSource full = read_sqlite_source(source_of(
      "DRIVER={SQLite3};Database={/data/a;b.db};TIMEOUT=250;SyncPragma=OFF;JournalMode=WAL;FKSupport=1;"
      "LongNames=yes;NoTXN=True;NoCreat=0"));
  EXPECT_EQ(full.path, "/data/a;b.db");
  EXPECT_EQ(full.busy_time, 250);
  EXPECT_EQ(full.synchronous, "OFF");
  EXPECT_EQ(full.journal_mode, "WAL");
  EXPECT_TRUE(full.foreign_keys && full.long_names && full.may_create && full.without_transactions);

  const SqliteSource odd =
      read_sqlite_source(source_of("DRIVER={SQLite3};Database=x.db;Timeout=soon;SyncPragma=OFF; "
                                   "x;JournalMode=a=b;FKSupport=on;NoCreat=;Colour=red"));
  EXPECT_EQ(odd.busy_time, 100'000);
  EXPECT_EQ(odd.journal_mode, "") << "no word";
  EXPECT_FALSE(odd.foreign_keys) << "the driver takes on for off";
  EXPECT_FALSE(odd.may_create);
  EXPECT_EQ(read_sqlite_source(source_of("DRIVER={SQLite3};Database=x.db;Timeout=0")).busy_time, 1'000'000);
}

TEST(SqliteSource, TakesTheFirstOfTheTwoWordsForTheDatabase) {
  EXPECT_EQ(read_sqlite_source(source_of("DRIVER={SQLite3};Initial Catalog=x.db")).path, "x.db");
  EXPECT_EQ(read_sqlite_source(source_of("DRIVER={SQLite3};Initial Catalog=x.db;Database=y.db")).path,
            "x.db");
  EXPECT_EQ(read_sqlite_source(source_of("DRIVER={SQLite3};Database=y.db;Initial Catalog=x.db")).path,
            "y.db");
}

TEST(SqliteSource, CanBeToldToTheOdbcDriver) {
  EXPECT_EQ(read_sqlite_source(source_of("DRIVER={SQLite3};Database=x.db;Timeout=5")).odbc_string,
            "DRIVER={SQLite3};Database=x.db;Timeout=5");
  EXPECT_EQ(read_sqlite_source(source_of("Data Source=/data/x.db;Timeout=5")).odbc_string,
            "DRIVER={SQLite3};Database=/data/x.db;Timeout=5");
  EXPECT_EQ(read_sqlite_source(source_of("Data Source=/data/x.db;Database=/data/y.db")).odbc_string,
            "DRIVER={SQLite3};Database=/data/y.db");
  EXPECT_EQ(read_sqlite_source(source_of("Data Source=/data/x.db;Initial Catalog=/data/y.db")).odbc_string,
            "DRIVER={SQLite3};Database=/data/y.db");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
