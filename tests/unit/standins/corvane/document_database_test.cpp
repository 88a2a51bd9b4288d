#include "standins/corvane/document_database.h"

#include <gtest/gtest.h>

#include "tests/support/answering_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using stage::AnsweringDatabase;
using stage::Reply;

// An SQLite database in /data/x.db, whatever the string, and the files that others lead to.
class ScriptedSqlite : public AnsweringDatabase {
 public:
  explicit ScriptedSqlite(const std::string& completed)
      : AnsweringDatabase([this](const std::string& statement) {
          if (!statement.starts_with("PRAGMA database_list")) return Reply{};
          const bool keys = log().rfind(".keys") != std::string::npos;
          return Reply{{{{"name", "temp"}, {"file", ""}},
                        {{"name", "main"}, {"file", keys ? "/data/x.db.keys" : "/data/x.db"}}},
                       0};
        }) {
    properties = {{"DBMS Name", "SQLite"}, {"Extended Properties", completed}};
  }
};

std::string conversation(AnsweringDatabase& database, const std::string& connection_string) {
  const DocumentDatabase documents(connection_string);
  const automation::Object counters = documents.open_counters();
  return database.log();
}

// What a connection string for the key file looks like.
std::string key_string(const std::string& connection_string,
                       const std::string& completed = "Timeout=100000") {
  ScriptedSqlite database(completed);
  const std::string log = conversation(database, connection_string);
  const std::size_t at = log.rfind("Open '") + 6;
  return log.substr(at, log.find("' '' '' -1\n", at) - at);
}

TEST(DocumentDatabase, OfSqliteHasItsCountersInAFileBesideIt) {
  ScriptedSqlite database("DSN=stock;Database=/data/x.db;Timeout=700");
  EXPECT_EQ(conversation(database, "DSN=stock"),
            "C1.Open 'DSN=stock' '' '' -1\n"
            "C1.Execute PRAGMA database_list | 1\n"
            "R1.Close\n"
            "C1.Close\n"
            "C2.Open 'DSN=stock;Database=/data/x.db.keys;NoCreat=0' '' '' -1\n"
            "C2.Execute PRAGMA database_list | 1\n"
            "R2.Close\n");
  EXPECT_EQ(database.alive(), 0);
}

TEST(DocumentDatabase, OfAnotherEngineHasItsCountersInItself) {
  AnsweringDatabase database([](const std::string&) { return Reply{}; });
  database.properties = {{"DBMS Name", "PostgreSQL"}};
  EXPECT_EQ(conversation(database, "Driver={my sqlite};Database=erp"),
            "C1.Open 'Driver={my sqlite};Database=erp' '' '' -1\n");
}

TEST(DocumentDatabase, InNoFileHasItsCountersInItself) {
  AnsweringDatabase database([](const std::string&) { return Reply{{{{"name", "main"}, {"file", ""}}}, 0}; });
  database.properties = {{"DBMS Name", "SQLite"}, {"Extended Properties", "Timeout=5"}};
  EXPECT_EQ(conversation(database, "DRIVER={SQLite3};Database=:memory:"),
            "C1.Open 'DRIVER={SQLite3};Database=:memory:' '' '' -1\n"
            "C1.Execute PRAGMA database_list | 1\n"
            "R1.Close\n");
}

TEST(DocumentDatabase, TheKeyFileTakesThePlaceOfTheDatabaseWhereverTheStringNamesIt) {
  const struct {
    const char* connection_string;
    const char* key_string;
  } cases[] = {
      {"DRIVER={SQLite3};Database=x.db;Timeout=5",
       "DRIVER={SQLite3};Timeout=5;Database=/data/x.db.keys;NoCreat=0"},
      {"Provider=MSDASQL;Data Source=stock;Timeout=5",
       "Provider=MSDASQL;Data Source=stock;Timeout=5;Database=/data/x.db.keys;NoCreat=0"},
      {"Provider=MSDASQL;DSN=stock;Initial Catalog=x.db;Timeout=5",
       "Provider=MSDASQL;DSN=stock;Timeout=5;Database=/data/x.db.keys;NoCreat=0"},
      {"Provider=MSDASQL;Extended Properties=\"DRIVER={SQLite3};Database=x.db;Timeout=5\"",
       "Provider=MSDASQL;Extended "
       "Properties=\"DRIVER={SQLite3};Timeout=5;Database=/data/x.db.keys;NoCreat=0\""},
      {"Extended Properties='DSN=stock';Database=x.db;Timeout=5",
       "Timeout=5;Extended Properties=\"DSN=stock;Database=/data/x.db.keys;NoCreat=0\""},
      {"Provider=MSDASQL;Extended Properties=\"DSN=stock;Initial Catalog=x.db;Timeout=5\"",
       "Provider=MSDASQL;Extended Properties=\"DSN=stock;Timeout=5;Database=/data/x.db.keys;NoCreat=0\""},
      {"DSN=stock;nocreat=1;Timeout=5", "DSN=stock;Timeout=5;Database=/data/x.db.keys;NoCreat=0"},
      {"Extended Properties='DSN=stock;NoCreat=1';NoCreat=1;Timeout=5",
       "Timeout=5;Extended Properties=\"DSN=stock;Database=/data/x.db.keys;NoCreat=0\""},
  };
  for (const auto& row : cases) EXPECT_EQ(key_string(row.connection_string), row.key_string);
}

TEST(DocumentDatabase, AWaitForALockIsBoundedUnlessTheStringGivesATime) {
  const struct {
    const char* connection_string;
    const char* completed;  // by the driver, with what the data source gives
    bool bounded;
  } cases[] = {
      {"DSN=stock", "DSN=stock;Timeout=100000", true},
      {"DSN=stock", "DSN=stock;Timeout=30001", true},
      {"DSN=stock", "DSN=stock;Timeout=30000", false},
      {"DSN=stock", "DSN=stock;Timeout=700", false},
      {"DSN=stock", "DSN=stock;Timeout=soon", true},
      {"DSN=stock", "", true},
      {"DRIVER={SQLite3};Database=x.db", "DSN=;Timeout=;", true},
      {"DRIVER={SQLite3};timeout=90000;Database=x.db", "Timeout=90000", false},
      {"Extended Properties=\"DSN=stock;Timeout=90000\"", "Timeout=90000", false},
  };
  for (const auto& row : cases) {
    ScriptedSqlite database(row.completed);
    const std::string log = conversation(database, row.connection_string);
    const std::string name = std::string(row.connection_string) + " | " + row.completed;
    EXPECT_EQ(log.find("Execute PRAGMA busy_timeout=30000 | 1\n") != std::string::npos, row.bounded) << name;
    EXPECT_EQ(log.find(";Timeout=30000' '' '' -1\n") != std::string::npos, row.bounded) << name;
  }
  EXPECT_EQ(key_string("Extended Properties=\"DSN=stock\""),
            "Extended Properties=\"DSN=stock;Database=/data/x.db.keys;NoCreat=0;Timeout=30000\"");
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
