#include "company/database_copy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "automation/convert.h"
#include "automation/error.h"
#include "schema/description.h"
#include "tests/unit/company/copied_company.h"

namespace {

using namespace tallyra::tests::generated_company;
using company::AdoConnection;
using tallyra::tests::EmptyDatabase;
using tallyra::tests::TestedEngine;
namespace automation = tallyra::automation;
namespace schema = tallyra::schema;

class DatabaseCopy : public testing::TestWithParam<TestedEngine> {
 protected:
  void SetUp() override {
    database_ = GetParam().empty_database();
    if (!database_) GTEST_SKIP() << "there is no " << GetParam().name << " server here";
  }
  const std::string& target() const { return database_->connection_string(); }

 private:
  std::unique_ptr<EmptyDatabase> database_;
};

// Read with other queries than the copy's own.
void expect_same_texts(const AdoConnection& left, const AdoConnection& right, const std::string& query) {
  const auto text = [&](const AdoConnection& connection) {
    std::string all;
    for (const auto& row : connection.rows(query)) {
      for (const auto& value : row) all += (value.is_null() ? "NULL" : automation::to_text(value)) + "|";
      all += "\n";
    }
    return all;
  };
  EXPECT_EQ(text(left), text(right)) << query;
  EXPECT_NE(text(left), "") << query;
}

TEST_P(DatabaseCopy, AwkwardValuesArriveAsTheyAre) {
  const CopiedCompany source;
  source.copy_to(target());
  const AdoConnection from(CopiedCompany::sqlite(source.path()));
  const AdoConnection to(target());
  expect_same_texts(from, to, "SELECT * FROM DEPARTS");
  expect_same_texts(from, to, "SELECT * FROM PARTS ORDER BY PARTNO");
  expect_same_texts(from, to, "SELECT * FROM STKTRANHD WHERE TRANDT IS NULL");
  expect_same_texts(from, to, "SELECT * FROM STKTRANHD WHERE TRANDT IS NOT NULL");
  expect_same_texts(from, to, "SELECT * FROM STKTRANDT");
  expect_same_texts(from, to, "SELECT * FROM USERRIGHTS");
  EXPECT_EQ(automation::to_text(to.rows("SELECT DEPTNO FROM DEPARTS")[0][0]), "10 ");
}

TEST_P(DatabaseCopy, AWholeCompanyIsTheSameAfterwardsWithItsIndexesAndVersion) {
  tallyra::tests::sqlite_engine.empty_database();
  const CompanyFolder folder;
  const std::string path = folder.company_database();
  std::map<std::string, std::string> counts;
  for (const auto& count : company::copy_database(path, target(), [](auto, auto, auto, auto) {}))
    counts[count.table] = count.rows;
  EXPECT_EQ(counts.at("STKTRANDT"), "1200");
  const AdoConnection from(CopiedCompany::sqlite(path));
  const AdoConnection to(target());
  expect_same_texts(from, to,
                    "SELECT TRANNO,SN,PARTNO,QTY,UPRICE FROM STKTRANDT ORDER BY TRANNO,REFERENCE,SN,PARTNO");
  expect_same_texts(from, to, "SELECT * FROM STKTRANHD ORDER BY TRANNO");
  EXPECT_EQ(to.number("SELECT VERSION FROM TALLYRASCHEMA"), schema::version);
  EXPECT_EQ(company::upgrade_schema(target()), "is version 2; nothing was missing");
}

TEST_P(DatabaseCopy, CountersOfDocumentNumbersGoAlong) {
  const CopiedCompany source;
  source.copy_to(target());
  const AdoConnection to(target());
  const bool beside = to.engine() == schema::Engine::sqlite;
  const AdoConnection counters(
      beside ? CopiedCompany::sqlite(automation::to_text(to.rows("PRAGMA database_list")[0][2]) + ".keys")
             : target());
  EXPECT_EQ(counters.number("SELECT LASTNO FROM TABLEKEYS WHERE SERIES='027CLOSE'"), 41);
  EXPECT_EQ(counters.number("SELECT LASTNO FROM TABLEKEYS WHERE SERIES='CHECKISS240331'"), 7);
}

TEST_P(DatabaseCopy, TheJournalOfTheConsoleClientGoesAlong) {
  const CopiedCompany source;
  source.run(
      {"CREATE TABLE TALLYRALOCK(LOCKKEY VARCHAR(20))",
       "CREATE TABLE TALLYRAJOURNAL(SEQNO INTEGER NOT NULL,DONEAT VARCHAR(19),ACTION VARCHAR(40),"
       "SUBJECT VARCHAR(100),RESULT VARCHAR(20),DETAIL VARCHAR(255),USERID VARCHAR(50),OSUSER VARCHAR(100),"
       "HOSTNAME VARCHAR(255),PROCESSID INTEGER)",
       "INSERT INTO TALLYRAJOURNAL(SEQNO,DONEAT,ACTION) VALUES(3,'2024/02/01 09:00:00','close')"});
  source.copy_to(target());
  EXPECT_EQ(AdoConnection(target()).number("SELECT SEQNO FROM TALLYRAJOURNAL WHERE ACTION='close'"), 3);
}

TEST_P(DatabaseCopy, AnEmptyTargetThatHasItsTablesAlreadyWillDo) {
  const CopiedCompany source;
  company::upgrade_schema(target());
  source.copy_to(target());
  EXPECT_EQ(AdoConnection(target()).number("SELECT COUNT(*) FROM STKTRANDT"), 2);
}

TEST_P(DatabaseCopy, ATargetWithARowIsRefusedAndStaysAsItWas) {
  const CopiedCompany source;
  company::upgrade_schema(target());
  AdoConnection(target()).execute("INSERT INTO REVADDR(ADDRNO) VALUES('A1')");
  EXPECT_EQ(source.refusal(target()), "the target is not empty: its table REVADDR has rows");
  EXPECT_EQ(AdoConnection(target()).number("SELECT COUNT(*) FROM PARTS"), 0);
}

TEST_P(DatabaseCopy, AFailureOnTheWayLeavesTheTargetAsItWas) {
  const CopiedCompany source;
  company::Database(source.path()).execute("INSERT INTO COHD(CONO,CODT) VALUES('C1','soon')");
  EXPECT_EQ(source.refusal(target()), "in the table COHD CODT holds 'soon', which is no date");
  EXPECT_THROW(AdoConnection(target()).number("SELECT COUNT(*) FROM STKTRANHD"), automation::Error);
}

TEST_P(DatabaseCopy, ProgressEndsWithEveryRowCopiedAndCompared) {
  const CopiedCompany source;
  std::vector<std::string> seen;
  company::copy_database(source.path(), target(), [&](auto doing, auto, auto rows, auto of) {
    EXPECT_LE(rows, of);
    seen.push_back(std::string(doing) + " " + std::to_string(rows) + " of " + std::to_string(of));
  });
  EXPECT_EQ(seen.front(), "copying 0 of 10");
  EXPECT_NE(std::ranges::find(seen, "copying 10 of 10"), seen.end());
  EXPECT_EQ(seen.back(), "comparing 10 of 10");
}

INSTANTIATE_TEST_SUITE_P(SQLite, DatabaseCopy, testing::Values(tallyra::tests::sqlite_engine));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, DatabaseCopy, testing::Values(tallyra::tests::postgresql_engine));

}  // namespace
