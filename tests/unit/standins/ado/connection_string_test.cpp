#include "standins/ado/connection_string.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::standins::ado {
namespace {

TEST(ConnectionString, BecomesWhatOdbcReads) {
  struct Row {
    const char* client;
    const char* user;
    const char* password;
    const char* odbc;
  };
  const Row rows[] = {
      {"DRIVER={SQLite3};Database=/data/x.db", "", "", "DRIVER={SQLite3};Database=/data/x.db"},
      {"DRIVER={SQLite3};Database=/data/a b.db;", "", "", "DRIVER={SQLite3};Database=/data/a b.db"},
      {" DSN = Stock ; Timeout=5", "", "", "DSN=Stock;Timeout=5"},
      {"Provider=MSDASQL;DSN=Stock", "", "", "DSN=Stock"},
      {"DSN=Stock;PROVIDER=msdasql.1", "", "", "DSN=Stock"},
      {"Provider=;DSN=Stock", "", "", "DSN=Stock"},
      {"Provider=MSDASQL.1;Persist Security Info=False;Data Source=Stock;User ID=me;Password=pw;"
       "Initial Catalog=Main",
       "", "", "DSN=Stock;UID=me;PWD=pw;DATABASE=Main"},
      {"Provider=MSDASQL;Extended Properties=\"DRIVER={SQLite3};Database=/data/x;y.db\"", "", "",
       "DRIVER={SQLite3};Database=/data/x;y.db"},
      {"Provider=MSDASQL;Extended Properties='DSN=Stock;Description=\"a;b\"';Timeout=5", "", "",
       "DSN=Stock;Description=\"a;b\";Timeout=5"},
      {"Extended Properties=\"DSN=Stock;PWD=say \"\"please\"\"\"", "", "", "DSN=Stock;PWD=say \"please\""},
      {"DSN=Stock", "me", "pw", "DSN=Stock;UID=me;PWD=pw"},
      {"DSN=Stock;UID=you;PWD=old;Timeout=5", "me", "pw", "DSN=Stock;Timeout=5;UID=me;PWD=pw"},
      {"DSN=Stock;User ID=you;PWD=old", "me", "", "DSN=Stock;PWD=old;UID=me"},
      {"DSN=Stock", "me", "p;w}d", "DSN=Stock;UID=me;PWD={p;w}}d}"},
      {"DRIVER={a;b}}c};X=1", "", "", "DRIVER={a;b}}c};X=1"},
      {"Data Source=\"a;b\"", "", "", "DSN={a;b}"},
      {"Extended Properties=Extended Properties=Extended Properties=x", "", "",
       "Extended Properties=Extended Properties=x"},
      {"nonsense", "me", "", "nonsense;UID=me"},
      {"", "", "", ""},
      {";;;", "", "", ""},
      {"", "me", "", "UID=me"},
      {"Database={unclosed", "", "", "Database={unclosed"},
      {"Database=\"", "", "", "Database=\""},
      {"=", "", "", ""},
  };
  for (const Row& row : rows)
    EXPECT_EQ(odbc_connection_string(row.client, row.user, row.password), row.odbc) << row.client;
}

TEST(ConnectionString, OfAnotherProviderIsRefused) {
  for (const char* client : {"Provider=SQLOLEDB;DSN=Stock", "DSN=Stock;provider=Microsoft.Jet.OLEDB.4.0",
                             "Provider=MSDASQLX", "Provider='MSDAORA'"})
    try {
      odbc_connection_string(client, "", "");
      ADD_FAILURE() << client;
    } catch (const automation::Error& error) {
      EXPECT_EQ(error.number(), 3706) << client;
    }
}

}  // namespace
}  // namespace tallyra::standins::ado
