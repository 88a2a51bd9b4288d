#include "company/database_place.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "company/options.h"
#include "tests/support/test_folder.h"

namespace {

using namespace tallyra::company;
using tallyra::tests::TestFolder;

TEST(DatabasePlace, APathIsAnSqliteFile) {
  const DatabasePlace place("some/company.db");
  EXPECT_EQ(place.connection_string, "DRIVER={SQLite3};Database=some/company.db;Timeout=10000");
  EXPECT_EQ(place.file, "some/company.db");
}

TEST(DatabasePlace, AConnectionStringIsTakenAsItIs) {
  for (const char* text : {"DSN=stock", "DRIVER={PostgreSQL Unicode};Servername=db;Database=stock"}) {
    EXPECT_EQ(DatabasePlace(text).connection_string, text);
    EXPECT_EQ(DatabasePlace(text).file, "") << text;
  }
  EXPECT_EQ(DatabasePlace("driver=sqlite3;Timeout=5;database=/srv/c.db").file, "/srv/c.db");
}

TEST(DatabasePlace, AConnectionStringTellsTheFileInEveryWayThatMeansSqlite) {
  for (const char* text :
       {"DRIVER={SQLite3};Initial Catalog=/srv/c.db", "Data Source=/srv/c.db;Timeout=5",
        "Extended Properties=\"DRIVER={SQLite3};Database=/srv/c.db\"",
        "Data Source=/srv/x.db;Database=/srv/c.db", "Provider=MSDASQL;DRIVER={SQLite3};Database=/srv/c.db"}) {
    EXPECT_EQ(DatabasePlace(text).connection_string, text);
    EXPECT_EQ(DatabasePlace(text).file, "/srv/c.db") << text;
  }
  for (const char* text :
       {"Data Source=stock", "Provider=MSDASQL;Data Source=/srv/c.db",
        "DRIVER={FreeTDS};Data Source=/srv/c.db", "DRIVER={SQLite3};DSN=stock;Database=/srv/c.db"})
    EXPECT_EQ(DatabasePlace(text).file, "") << text;
}

TEST(DatabasePlace, APathWithBlanksAroundItKeepsThem) {
  EXPECT_EQ(DatabasePlace(" c.db ").connection_string, "DRIVER={SQLite3};Database={ c.db };Timeout=10000");
}

TEST(DatabasePlace, MemoryIsNoPlaceForACompany) {
  EXPECT_THROW(DatabasePlace(":memory:"), Refusal);
  EXPECT_THROW(DatabasePlace("DRIVER={SQLite3};Database=:memory:"), Refusal);
}

TEST(DatabasePlace, ANetworkAddressIsRefusedWithoutItsPassword) {
  for (const char* text :
       {"postgresql://u:secret@h/d", "postgres://u:secret@h/d?sslmode=require",
        "Data Source=mysql://u:secret@h/d", "DRIVER={SQLite3};Database=postgresql://u:secret@h/d"}) {
    try {
      const DatabasePlace place(text);
      ADD_FAILURE() << place.file;
    } catch (const Refusal& refusal) {
      EXPECT_STREQ(refusal.what(), "a network address names no database here: give a connection string");
    }
  }
  EXPECT_EQ(DatabasePlace("file:///srv/c.db").file, "file:///srv/c.db");
  EXPECT_EQ(DatabasePlace("/srv/a://b.db").file, "/srv/a://b.db");
}

TEST(DatabasePlace, AFileThatIsThereMayHaveAnEqualsSignInItsName) {
  const TestFolder folder;
  const std::string file = folder.file("year=2024.db");
  std::ofstream(file) << "";
  EXPECT_EQ(DatabasePlace(file).file, file);
}

TEST(DatabasePlace, APathThatBeginsWithNoKeywordMayHaveAnEqualsSignInItsName) {
  for (const char* path : {"./a=b.db", "/srv/a=b.db", "../x/a=b.db"}) {
    EXPECT_FALSE(is_connection_string(path));
    EXPECT_EQ(DatabasePlace(path).file, path);
  }
  EXPECT_TRUE(is_connection_string("Data Source=x"));
  EXPECT_FALSE(is_connection_string("=x"));
}

TEST(DatabasePlace, NothingAndAFolderAreRefused) {
  EXPECT_THROW(DatabasePlace(""), Refusal);
  EXPECT_THROW(DatabasePlace(TestFolder().path()), Refusal);
}

TEST(PresentFile, AFileThatItMadeGoesAgainUnlessItIsKept) {
  const TestFolder folder;
  const std::string file = folder.file("new.db");
  {
    const PresentFile made(file);
    EXPECT_TRUE(std::filesystem::exists(file));
    std::ofstream(file + "-wal") << "x";
  }
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_FALSE(std::filesystem::exists(file + "-wal"));
  PresentFile(file).keep();
  EXPECT_TRUE(std::filesystem::exists(file));
  { const PresentFile found(file); }
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST(PresentFile, WithoutAFolderThereIsNoFile) {
  EXPECT_THROW(PresentFile("/nowhere/at/all.db"), Refusal);
}

}  // namespace
