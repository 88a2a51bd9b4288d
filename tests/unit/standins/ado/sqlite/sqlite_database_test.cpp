#include "standins/ado/sqlite/sqlite_database.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "automation/convert.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t unspecified_error = -2147467259;
constexpr uid_t nobody = 65534;

// What a file's permissions say binds the tests also where they run as the one whom nothing binds.
class Unprivileged {
 public:
  Unprivileged() = default;
  ~Unprivileged() { EXPECT_EQ(::seteuid(before_), 0); }
  bool done() const { return done_; }

 private:
  uid_t before_ = ::geteuid();
  bool done_ = before_ != 0 || ::seteuid(nobody) == 0;
};

class SqliteDatabaseTest : public ScratchDatabase {
 protected:
  std::string complaint(const std::string& text) const {
    const Object connection = automation::create("ADODB.Connection");
    const auto open = [&] { connection.call("Open", text); };
    EXPECT_EQ(error_of(open), unspecified_error);
    return description_of(open);
  }
  std::string to(const std::string& file) const { return "DRIVER={SQLite3};Database=" + path(file); }
};

TEST_F(SqliteDatabaseTest, IsNotMadeWhereThePathIsMisspelt) {
  EXPECT_EQ(complaint(to("tset.db")), "There is no database file " + path("tset.db"));
  EXPECT_EQ(complaint("Data Source=" + path("tset.db")), "There is no database file " + path("tset.db"));
  EXPECT_EQ(complaint(to("nowhere/test.db")), "There is no database file " + path("nowhere/test.db"));
  EXPECT_FALSE(std::filesystem::exists(path("tset.db")));
  EXPECT_EQ(complaint("DRIVER={SQLite3}"), "The connection string names no database file");
}

// It looks for such a file by rules of its own, so only it can tell what is in the way.
TEST_F(SqliteDatabaseTest, IsToldInTheLibrarysWordsWhereItsOwnSpellingNamesIt) {
  const std::string file = "file:" + path("test.db") + "?vfs=none";
  EXPECT_EQ(complaint("DRIVER={SQLite3};Database=" + file), "no such vfs: none: " + file);
}

TEST_F(SqliteDatabaseTest, HasAPathThatItsCompletedStringHoldsAsItIs) {
  make_database("a;Timeout=1.db");
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", "DRIVER={SQLite3};Timeout=250;Database={" + path("a;Timeout=1.db") + "}");
  const auto completed = automation::to_text(
      automation::to_object(connection.call("Properties", "Extended Properties")).get("Value"));
  const Object again = automation::create("ADODB.Connection");
  again.call("Open", completed);
  EXPECT_EQ(automation::to_object(again.call("Properties", "Current Catalog")).get("Value"),
            Value(path("a;Timeout=1.db")));
}

TEST_F(SqliteDatabaseTest, IsMadeForWhoSaysSo) {
  for (const char* const word : {"1", "yes"})
    EXPECT_EQ(complaint(to("new.db") + ";NoCreat=" + word), "There is no database file " + path("new.db"));
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", to("new.db") + ";NoCreat=0");
  execute(connection, "create table T(A integer)");
  EXPECT_TRUE(std::filesystem::exists(path("new.db")));
}

TEST_F(SqliteDatabaseTest, IsNoFolder) {
  std::filesystem::create_directory(path("folder"));
  EXPECT_EQ(complaint(to("folder")), path("folder") + " is a folder and no database file");
}

TEST_F(SqliteDatabaseTest, ThatMayNotBeReadIsToldAsSuch) {
  std::filesystem::permissions(path(""), std::filesystem::perms::all);
  ::chmod(path("test.db").c_str(), 0);
  const Unprivileged unprivileged;
  if (!unprivileged.done()) GTEST_SKIP() << "this machine lets nobody be another";
  EXPECT_EQ(complaint(to("test.db")), "No permission to read the database file " + path("test.db"));
}

TEST_F(SqliteDatabaseTest, ThatMayNotBeWrittenCanBeRead) {
  {
    const Object connection = open_connection();
    execute(connection, "create table T(A integer)");
    execute(connection, "insert into T(A) values(7)");
  }
  std::filesystem::permissions(path(""), std::filesystem::perms::all);
  ::chmod(path("test.db").c_str(), 0444);
  const Unprivileged unprivileged;
  if (!unprivileged.done()) GTEST_SKIP() << "this machine lets nobody be another";
  const Object connection = open_connection();
  EXPECT_EQ(scalar(connection, "select A from T"), Value(7));
  const auto write = [&] { execute(connection, "insert into T(A) values(8)"); };
  EXPECT_EQ(description_of(write), "attempt to write a readonly database");
  connection.call("BeginTrans");
  EXPECT_EQ(scalar(connection, "select A from T"), Value(7));
  EXPECT_EQ(description_of(write), "attempt to write a readonly database");
  connection.call("CommitTrans");
}

TEST_F(SqliteDatabaseTest, ComesByTheNameOfItsFileAlone) {
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", "Data Source=" + path("test.db") + ";Timeout=100");
  execute(connection, "create table T(A integer)");
  EXPECT_EQ(automation::to_object(connection.call("Properties", "Driver Name")).get("Value"),
            Value("libsqlite3"));
  EXPECT_EQ(scalar(open_connection(), "select count(*) from T"), Value(0));
}

// The second wall, behind the guard that reads the texts.
TEST_F(SqliteDatabaseTest, LetsNothingReachBeyondItself) {
  const DatabaseHandle database = open_sqlite({.path = path("test.db")});
  const auto refused = [&](const std::string& sql) {
    return execute_sqlite(database.get(), sql.c_str()) != SQLITE_OK;
  };
  EXPECT_FALSE(refused("create table T(A integer)"));
  EXPECT_FALSE(refused("select abs(A) from T"));
  EXPECT_FALSE(refused("pragma table_info(T)"));
  EXPECT_TRUE(refused("attach '" + path("other.db") + "' as o"));
  EXPECT_TRUE(refused("vacuum into '" + path("other.db") + "'"));
  EXPECT_TRUE(refused("create virtual table F using fts5(a)"));
  EXPECT_TRUE(refused("select load_extension('x')"));
  EXPECT_TRUE(refused("select fts3_tokenizer('simple')"));
  EXPECT_TRUE(refused("pragma temp_store_directory='/'"));
  EXPECT_FALSE(std::filesystem::exists(path("other.db")));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
