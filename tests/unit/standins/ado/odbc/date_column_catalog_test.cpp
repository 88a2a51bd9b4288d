#include "standins/ado/odbc/date_column_catalog.h"

#include "tests/unit/standins/ado/odbc/plain_odbc.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class DateColumnCatalogTest : public ScratchDatabase {
 protected:
  DateColumnCatalogTest()
      : plain_(odbc_string()),
        statement_(SQL_HANDLE_DBC, plain_.connection()),
        catalog_(statement_.get(), false) {
    EXPECT_TRUE(plain_.run("create table A_B(DAY date, MOMENT timestamp, NAME varchar(20))"));
  }

  PlainOdbc plain_;
  OdbcHandle<SQL_HANDLE_STMT> statement_;
  DateColumnCatalog catalog_;
};

TEST_F(DateColumnCatalogTest, KnowsTheDateColumnsOfATableInAnyCase) {
  EXPECT_TRUE(catalog_.is_date("A_B", "DAY"));
  EXPECT_TRUE(catalog_.is_date("a_b", "moment"));
  EXPECT_FALSE(catalog_.is_date("A_B", "NAME"));
  EXPECT_FALSE(catalog_.is_date("A_B", "NOSUCH"));
  EXPECT_FALSE(catalog_.is_date("NOSUCH", "DAY"));
}

TEST_F(DateColumnCatalogTest, ATableOfASimilarNameIsAnother) {
  EXPECT_TRUE(plain_.run("create table AXB(SOON date)"));
  EXPECT_FALSE(catalog_.is_date("A_B", "SOON")) << "to the driver the name is a pattern";
  EXPECT_TRUE(catalog_.is_date("AXB", "SOON"));
}

TEST_F(DateColumnCatalogTest, LooksATableUpOnceUntilItForgets) {
  EXPECT_FALSE(catalog_.is_date("LATER", "DAY"));
  EXPECT_TRUE(plain_.run("create table LATER(DAY date)"));
  EXPECT_FALSE(catalog_.is_date("LATER", "DAY"));
  catalog_.forget();
  EXPECT_TRUE(catalog_.is_date("LATER", "DAY"));
}

TEST_F(DateColumnCatalogTest, NoTableHasAnEndlessName) {
  EXPECT_FALSE(catalog_.is_date(std::string(100'000, 'x'), "DAY"));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
