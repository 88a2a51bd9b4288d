#include "tests/support/data_source.h"

#include <gtest/gtest.h>

#include "automation/convert.h"
#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/company_database.h"

// Numbers over connection strings that name neither the driver nor the database.
namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

// The number, or what went wrong instead.
std::string next(const CompanyDatabase& database, const std::string& connection_string) {
  const Object system = database.system();
  system.put("ConnectionString", connection_string);
  Value key;
  if (system.call("GetTableKeyID", "STK027CLOSE", "TRANNO", ref(key)) == Value(1))
    return automation::to_text(key);
  return automation::to_text(system.get("ErrDescription"));
}

TEST(NumbersOverADataSource, ComeFromTheKeyFileOfItsDatabaseWhileThatIsBeingWritten) {
  const CompanyDatabase database;
  const std::string file = database.file().generic_string();
  const tests::DataSource source("Driver=SQLite3\nDatabase=" + file + "\nTimeout=300\nSyncPragma=OFF\n");
  const Object writer = database.open();
  Value affected;
  writer.call("BeginTrans");
  writer.call("Execute", "Insert Into REVADDR(ADDRNO) Values('held')", ref(affected), -1);

  int number = 0;
  for (const std::string& connection_string :
       {database.connection_string(), "DSN=" + source.name(), "Provider=MSDASQL;DSN=" + source.name(),
        "Provider=MSDASQL.1;Persist Security Info=False;Data Source=" + source.name(),
        "Provider=MSDASQL;Extended Properties=\"DSN=" + source.name() + "\"",
        "Provider=MSDASQL;Extended Properties='DRIVER={SQLite3};Database=" + file + ";Timeout=300'"})
    EXPECT_EQ(next(database, connection_string), "027CLOSE0000000" + std::to_string(++number))
        << connection_string;

  writer.call("RollbackTrans");
  writer.call("Close");
  EXPECT_TRUE(std::filesystem::exists(database.key_file()));
  EXPECT_EQ(database.value("Select Count(*) From sqlite_master Where name='TABLEKEYS'"), Value(0));
}

// Who forbids a misspelt database to come into being means no key file by it.
TEST(NumbersOverADataSource, ComeFromANewKeyFileWhereNoDatabaseMayBeCreated) {
  const CompanyDatabase database;
  const std::string file = database.file().generic_string();
  const tests::DataSource source("Driver=SQLite3\nDatabase=" + file + "\nTimeout=300\nNoCreat=1\n");
  const std::string driver = "DRIVER={SQLite3};Database=" + file + ";Timeout=300;NoCreat=1";
  for (const std::string& connection_string :
       {"DSN=" + source.name(), driver, "Provider=MSDASQL;Extended Properties=\"" + driver + "\"",
        "Provider=MSDASQL;Extended Properties=\"DSN=" + source.name() + "\";NoCreat=1"}) {
    std::filesystem::remove(database.key_file());
    EXPECT_EQ(next(database, connection_string), "027CLOSE00000001") << connection_string;
    EXPECT_TRUE(std::filesystem::exists(database.key_file())) << connection_string;
  }
}

TEST(NumbersOverADataSource, WaitForALockAsLongAsItSays) {
  const CompanyDatabase database;
  const tests::DataSource source("Driver=SQLite3\nDatabase=" + database.file().generic_string() +
                                 "\nTimeout=200\n");
  EXPECT_EQ(next(database, "DSN=" + source.name()), "027CLOSE00000001");
  const Object holder = database.open(database.key_file().generic_string());
  holder.call("BeginTrans");
  Value affected;
  holder.call("Execute", "Update TABLEKEYS Set LASTNO=77", ref(affected), -1);
  EXPECT_NE(next(database, "DSN=" + source.name()).find("database is locked"), std::string::npos);
  holder.call("RollbackTrans");
  holder.call("Close");
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
