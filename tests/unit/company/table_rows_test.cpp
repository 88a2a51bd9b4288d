#include "company/table_rows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/company/copied_company.h"

namespace {

using namespace tallyra::tests::generated_company;
using company::AdoConnection;
namespace schema = tallyra::schema;

const schema::Table& lines() {
  return *std::ranges::find(schema::tables(), "STKTRANDT", &schema::Table::name);
}

TEST(TableRows, ALargeTableComesInPartsThatAreAllItsRows) {
  const CopiedCompany source;
  const AdoConnection connection(CopiedCompany::sqlite(source.path()));
  connection.begin();
  connection.execute(
      "INSERT INTO STKTRANDT(TRANNO,PARTNO,SN) WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I+1 FROM N "
      "WHERE "
      "I<50000) SELECT 'D'||(I/9),'P',I FROM N");
  const auto parts = company::parts_of(connection, lines());
  EXPECT_EQ(parts.size(), 3U);
  std::vector<std::string> rows;
  for (const auto& part : parts) {
    const auto some = company::rows_of(connection, lines(), part);
    EXPECT_EQ(some.size(), part.rows);
    rows.insert(rows.end(), some.begin(), some.end());
  }
  EXPECT_EQ(rows.size(), 50'002U);
  std::ranges::sort(rows);
  // Both awkward lines of document T1 are equal; of the others each is there once.
  EXPECT_EQ(static_cast<std::size_t>(std::ranges::unique(rows).begin() - rows.begin()), 50'001U);
}

TEST(TableRows, ASmallTableIsOnePart) {
  const CopiedCompany source;
  const AdoConnection connection(CopiedCompany::sqlite(source.path()));
  const auto parts = company::parts_of(connection, lines());
  ASSERT_EQ(parts.size(), 1U);
  EXPECT_EQ(parts[0].condition, "");
  EXPECT_EQ(parts[0].rows, 2U);
}

TEST(TableRows, RowsAreWrittenAsTheyWereReadHoweverMany) {
  const CopiedCompany source;
  const AdoConnection connection(CopiedCompany::sqlite(source.path()));
  auto rows = company::rows_of(connection, lines(), {});
  connection.execute("DELETE FROM STKTRANDT");
  while (rows.size() < 250) rows.push_back(rows.front());
  company::insert_rows(connection, lines(), rows);
  EXPECT_EQ(company::rows_of(connection, lines(), {}), rows);
  company::insert_rows(connection, lines(), {});
  EXPECT_EQ(company::row_count(connection, "STKTRANDT"), 250U);
}

}  // namespace
