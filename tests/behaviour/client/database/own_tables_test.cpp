#include "client/database/own_tables.h"

#include <gtest/gtest.h>

#include "tests/support/company_database.h"

namespace tallyra::client {
namespace {

TEST(OwnTables, AreMadeOnceAndKeepWhatIsInThem) {
  const behaviour::CompanyDatabase company;
  const Reader reader(company.connection_string(), "MSACCESS");
  EXPECT_FALSE(has_own_tables(reader));
  make_own_tables(reader);
  EXPECT_TRUE(has_own_tables(reader));
  company.run({"INSERT INTO TALLYRALOCK(LOCKKEY) VALUES('CLOSE')", "DROP TABLE TALLYRAJOURNAL"});
  EXPECT_FALSE(has_own_tables(reader)) << "there are two of them";
  make_own_tables(reader);
  EXPECT_TRUE(has_own_tables(reader));
  EXPECT_EQ(company.rows("SELECT LOCKKEY FROM TALLYRALOCK"), "CLOSE\n");
}

}  // namespace
}  // namespace tallyra::client
