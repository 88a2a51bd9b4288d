#include "company/ado_connection.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/company/copied_company.h"

namespace {

using namespace tallyra::tests::generated_company;
using company::AdoConnection;
using tallyra::automation::Value;

class CompanyConnection : public testing::Test {
 protected:
  CopiedCompany company_;
  const AdoConnection connection_{CopiedCompany::sqlite(company_.path())};
};

TEST_F(CompanyConnection, ReadsRowsAndTheOneNumberOfAQuery) {
  const auto rows = connection_.rows("SELECT PARTNO,EDITDT FROM PARTS ORDER BY PARTNO");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0][0], Value("a "));
  EXPECT_EQ(rows[1], (AdoConnection::Row{Value("中-1"), Value(tallyra::automation::Null{})}));
  EXPECT_TRUE(connection_.rows("SELECT PARTNO FROM PARTS WHERE 1=0").empty());
  EXPECT_EQ(connection_.number("SELECT COUNT(*) FROM PARTS"), 2);
}

TEST_F(CompanyConnection, TellsColumnsAndRelationsInCapitals) {
  connection_.execute("CREATE TABLE Mixed(lower INTEGER,Upper TEXT)");
  EXPECT_EQ(connection_.columns_of("mixed"), (std::vector<std::string>{"LOWER", "UPPER"}));
  const auto relations = connection_.relations();
  EXPECT_EQ(std::ranges::count(relations, "MIXED"), 1);
  EXPECT_EQ(std::ranges::count(relations, "STKTRANHD"), 1);
  EXPECT_EQ(connection_.engine(), tallyra::schema::Engine::sqlite);
}

TEST_F(CompanyConnection, WhatWasNotCommittedGoesWithIt) {
  const auto count_after = [this](bool commit) {
    {
      const AdoConnection writer(CopiedCompany::sqlite(company_.path()));
      writer.begin();
      writer.execute("INSERT INTO DEPARTS(DEPTNO) VALUES('77')");
      if (commit) writer.commit();
    }
    return connection_.number("SELECT COUNT(*) FROM DEPARTS WHERE DEPTNO='77'");
  };
  EXPECT_EQ(count_after(false), 0);
  EXPECT_EQ(count_after(true), 1);
}

TEST_F(CompanyConnection, ARefusedStatementIsTheErrorOfAdo) {
  EXPECT_THROW(connection_.execute("INSERT INTO NOWHERE VALUES(1)"), tallyra::automation::Error);
}

}  // namespace
