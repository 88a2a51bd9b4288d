#include "company/schema_upgrade.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "automation/convert.h"
#include "automation/error.h"
#include "company/options.h"
#include "schema/description.h"
#include "tests/support/empty_database.h"
#include "tests/support/test_folder.h"

namespace {

using namespace tallyra::company;
using tallyra::tests::EmptyDatabase;
using tallyra::tests::TestedEngine;
namespace automation = tallyra::automation;
namespace schema = tallyra::schema;

class SchemaUpgradeOn : public testing::TestWithParam<TestedEngine> {
 protected:
  void SetUp() override {
    database_ = GetParam().empty_database();
    if (!database_) GTEST_SKIP() << "there is no " << GetParam().name << " server here";
  }

  std::string upgrade() const { return upgrade_schema(place()); }
  const std::string& place() const { return database_->connection_string(); }
  void run(std::initializer_list<const char*> statements) const {
    const AdoConnection connection(place());
    for (const char* statement : statements) connection.execute(statement);
  }
  double number(const std::string& query) const { return AdoConnection(place()).number(query); }
  std::string refusal() const {
    try {
      return "not refused: " + upgrade();
    } catch (const Refusal& refused) {
      return refused.what();
    }
  }

 private:
  std::unique_ptr<EmptyDatabase> database_;
};

TEST_P(SchemaUpgradeOn, AnEmptyDatabaseGetsEverythingThatIsDescribed) {
  EXPECT_TRUE(upgrade().starts_with("created version 2 with ")) << upgrade();
  const AdoConnection connection(place());
  for (const schema::Table& table : schema::tables()) {
    if (!schema::in_database(connection.engine(), table)) continue;
    std::vector<std::string> described;
    for (const schema::Column& column : table.columns) described.emplace_back(column.name);
    EXPECT_EQ(connection.columns_of(table.name), described) << table.name;
  }
  EXPECT_EQ(number("SELECT VERSION FROM TALLYRASCHEMA"), schema::version);
}

TEST_P(SchemaUpgradeOn, ASecondTimeThereIsNothingToDo) {
  upgrade();
  EXPECT_EQ(upgrade(), "is version 2; nothing was missing");
  EXPECT_EQ(number("SELECT COUNT(*) FROM TALLYRASCHEMA"), 1);
}

TEST_P(SchemaUpgradeOn, ADatabaseFromBeforeVersionsGetsWhatIsMissingAndKeepsItsRows) {
  upgrade();
  run({"DROP TABLE TALLYRASCHEMA", "DROP INDEX STKTRANDT_BY_PART", "DROP TABLE REVADDR",
       "ALTER TABLE PARTS DROP COLUMN COLORNM", "INSERT INTO PARTS(PARTNO,PARTNM) VALUES('P1','Tube')",
       "INSERT INTO STKTRANDT(TRANNO,PARTNO) VALUES('T1','P1')"});
  EXPECT_EQ(upgrade(),
            "was version 1 and is 2; added REVADDR, PARTS.COLORNM, TALLYRASCHEMA, STKTRANDT_BY_PART");
  EXPECT_EQ(number("SELECT COUNT(*) FROM PARTS WHERE PARTNM='Tube' AND COLORNM IS NULL"), 1);
  EXPECT_EQ(number("SELECT COUNT(*) FROM STKTRANDT"), 1);
  EXPECT_EQ(number("SELECT COUNT(*) FROM REVADDR"), 0);
}

TEST_P(SchemaUpgradeOn, ANewerDatabaseIsLeftAlone) {
  upgrade();
  run({"UPDATE TALLYRASCHEMA SET VERSION=3", "DROP TABLE REVADDR"});
  EXPECT_EQ(
      refusal(),
      "the tables are of version 3, and this program knows 2: use the program that they were made with");
  EXPECT_EQ(number("SELECT VERSION FROM TALLYRASCHEMA"), 3);
  EXPECT_THROW(number("SELECT COUNT(*) FROM REVADDR"), automation::Error);
}

TEST_P(SchemaUpgradeOn, ATableOfSomebodyElseIsRefusedAndNothingIsAdded) {
  run({"CREATE TABLE PARTS(NAME VARCHAR(20))", "INSERT INTO PARTS(NAME) VALUES('theirs')"});
  EXPECT_EQ(
      refusal(),
      "there is a table PARTS without PARTS.PARTNO, which every row needs: it is not one of this system");
  EXPECT_EQ(number("SELECT COUNT(*) FROM PARTS WHERE NAME='theirs'"), 1);
  EXPECT_THROW(number("SELECT COUNT(*) FROM STKTRANHD"), automation::Error);
}

INSTANTIATE_TEST_SUITE_P(SQLite, SchemaUpgradeOn, testing::Values(tallyra::tests::sqlite_engine));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, SchemaUpgradeOn, testing::Values(tallyra::tests::postgresql_engine));

TEST(SchemaUpgrade, MakesTheFileOfAnSqliteDatabaseInWalMode) {
  tallyra::tests::sqlite_engine.empty_database();
  const tallyra::tests::TestFolder folder;
  upgrade_schema(folder.file("new.db"));
  const AdoConnection connection("DRIVER={SQLite3};Database=" + folder.file("new.db"));
  EXPECT_EQ(automation::to_text(connection.rows("PRAGMA journal_mode")[0][0]), "wal");
  EXPECT_EQ(connection.number("SELECT COUNT(*) FROM sqlite_stat1"), 8);
}

TEST(SchemaUpgrade, GatheredStatisticsAreKept) {
  tallyra::tests::sqlite_engine.empty_database();
  const tallyra::tests::TestFolder folder;
  const std::string file = folder.file("new.db");
  upgrade_schema(file);
  AdoConnection("DRIVER={SQLite3};Database=" + file).execute("UPDATE sqlite_stat1 SET stat='7 1'");
  upgrade_schema(file);
  const AdoConnection connection("DRIVER={SQLite3};Database=" + file);
  EXPECT_EQ(connection.number("SELECT COUNT(*) FROM sqlite_stat1 WHERE stat='7 1'"), 8);
}

TEST(SchemaUpgrade, AFailureLeavesNoNewFile) {
  tallyra::tests::sqlite_engine.empty_database();
  const tallyra::tests::TestFolder folder;
  EXPECT_THROW(upgrade_schema("DRIVER={SQLite3};NoSuchKey=1;LoadExt=x;Database=" + folder.file("new.db")),
               automation::Error);
  EXPECT_FALSE(std::filesystem::exists(folder.file("new.db")));
}

}  // namespace
