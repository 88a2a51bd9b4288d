#include "company/source_check.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "automation/error.h"
#include "tests/unit/company/copied_company.h"

// What is refused before anything is copied, so that nothing gets lost on the way.
namespace {

using namespace tallyra::tests::generated_company;
using company::AdoConnection;
using company::Refusal;

struct Change {
  const char* statement;
  const char* refusal;
};

TEST(SourceCheck, ASourceThatIsNotExactlyDescribed) {
  const Change changes[] = {
      {"DROP TABLE REVADDR", "the source has no table REVADDR; bring it up to date with --schema-only first"},
      {"ALTER TABLE PARTS DROP COLUMN COLORNM",
       "the source has no PARTS.COLORNM; bring it up to date with --schema-only first"},
      {"ALTER TABLE PARTS ADD COLUMN WEIGHT DOUBLE",
       "the source has a column PARTS.WEIGHT, which is not one of this system and would be lost"},
      {"CREATE TABLE theirs(A INTEGER)",
       "the source has a table THEIRS, which is not one of this system and would be left behind"},
      {"CREATE TABLE TABLEKEYS(SERIES VARCHAR(40))",
       "the source has a table TABLEKEYS, which is not one of this system and would be left behind"},
      {"UPDATE TALLYRASCHEMA SET VERSION=9",
       "the tables are of version 9, and this program knows 2: use the program that they were made with"},
  };
  for (const auto& [statement, refusal] : changes) {
    const CopiedCompany source;
    source.run({statement});
    EXPECT_EQ(source.refusal(source.file("target.db")), refusal);
    EXPECT_FALSE(std::filesystem::exists(source.file("target.db"))) << statement;
  }
}

TEST(SourceCheck, ASourceThatIsNotThereIsNotMade) {
  const CompanyFolder folder;
  EXPECT_THROW(
      company::copy_database(folder.file("no.db"), folder.file("to.db"), [](auto, auto, auto, auto) {}),
      Refusal);
  EXPECT_FALSE(std::filesystem::exists(folder.file("no.db")));
  EXPECT_FALSE(std::filesystem::exists(folder.file("to.db")));
}

TEST(SourceCheck, ADatabaseIsNotCopiedIntoItself) {
  const CopiedCompany source;
  EXPECT_EQ(source.refusal(source.path()), "'" + source.path() + "' cannot be copied into itself");
  EXPECT_EQ(source.refusal(CopiedCompany::sqlite(source.path())), source.refusal(source.path()));
}

TEST(SourceCheck, ASourceWhoseMonthSomebodyClosesIsLeftAlone) {
  const CopiedCompany source;
  source.run({"CREATE TABLE TALLYRALOCK(LOCKKEY VARCHAR(20))", "INSERT INTO TALLYRALOCK VALUES('CLOSE')"});
  EXPECT_EQ(source.refusal(source.file("target.db")),
            "somebody closes a month of the source; copy it when the lock is gone");
}

// Of a database from before versions nothing is missing but the version.
TEST(SourceCheck, ASourceFromBeforeVersionsIsNone) {
  const CopiedCompany source;
  source.run({"DROP TABLE TALLYRASCHEMA"});
  EXPECT_EQ(source.refusal(source.file("target.db")), "not refused");
}

TEST(SourceCheck, WhoeverIsWritingToTheSourceIsWaitedForInVain) {
  const CopiedCompany source;
  const AdoConnection writer(CopiedCompany::sqlite(source.path()));
  writer.begin();
  writer.execute("UPDATE PARTS SET PARTNM='x'");
  EXPECT_THROW(company::copy_database(CopiedCompany::sqlite(source.path()), source.file("target.db"),
                                      [](auto, auto, auto, auto) {}),
               tallyra::automation::Error);
}

TEST(SourceCheck, NobodyWritesToTheSourceOrTakesANumberMeanwhile) {
  const CopiedCompany source;
  int refused = 0;
  const auto try_to_write = [&](const std::string& file, const char* statement) {
    try {
      AdoConnection(CopiedCompany::sqlite(file) + ";Timeout=1").execute(statement);
    } catch (const tallyra::automation::Error&) {
      ++refused;
    }
  };
  bool first = true;
  company::copy_database(source.path(), source.file("target.db"), [&](auto, auto, auto, auto) {
    if (!std::exchange(first, false)) return;
    try_to_write(source.path(), "UPDATE PARTS SET PARTNM='x'");
    try_to_write(source.path() + ".keys", "UPDATE TABLEKEYS SET LASTNO=LASTNO+1");
  });
  EXPECT_EQ(refused, 2);
}

}  // namespace
