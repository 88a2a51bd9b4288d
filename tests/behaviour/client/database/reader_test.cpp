#include "client/database/reader.h"

#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/error.h"
#include "tests/support/company_database.h"

namespace tallyra::client {
namespace {

class ReaderOfACompany : public testing::TestWithParam<const char*> {
 protected:
  behaviour::CompanyDatabase company_;
  Reader reader_{company_.connection_string(), GetParam()};
};

TEST_P(ReaderOfACompany, HandsOverTypedValues) {
  company_.run({"INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('2024-01-31 00:00:00',1)",
                "INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('2024-02-29 00:00:00',NULL)"});
  const Rows read = reader_.rows("Select CLOSEDT,STATUSSN From STKCLOSEHD Order By CLOSEDT");
  EXPECT_EQ(read.columns, (std::vector<std::string>{"CLOSEDT", "STATUSSN"}));
  ASSERT_EQ(read.rows.size(), 2U);
  EXPECT_EQ(automation::to_text(read.rows[0][0]), "2024/01/31");
  EXPECT_EQ(automation::to_int32(read.rows[0][1]), 1);
  EXPECT_TRUE(read.rows[1][1].is_null());
}

TEST_P(ReaderOfACompany, WritesDatesAsTheKindOfDatabaseDoes) {
  company_.run({"INSERT INTO STKCLOSEHD(CLOSEDT) VALUES('2024-01-31 00:00:00')"});
  const automation::Date day = *automation::parse_date("2024/01/31 10:00");
  const auto count = [&](const std::string& comparison) {
    return reader_.count("Select Count(*) As N From STKCLOSEHD Where CLOSEDT" + comparison);
  };
  EXPECT_EQ(count("=" + reader_.date_literal(day)), 1);
  EXPECT_EQ(count("<" + reader_.date_literal(day)), 0);
  EXPECT_EQ(count("<" + reader_.time_literal(day)), 1);
}

TEST_P(ReaderOfACompany, AnswersNothingAsZero) {
  EXPECT_EQ(reader_.number("Select Max(STATUSSN) As N From STKCLOSEHD"), 0);
  EXPECT_TRUE(reader_.has_table("DEPARTS"));
  EXPECT_FALSE(reader_.has_table("NOSUCH"));
  EXPECT_THROW(reader_.rows("Select * From NOSUCH"), automation::Error);
}

TEST_P(ReaderOfACompany, HoldsUpNoWriterAfterAQueryThatWasLeft) {
  company_.run({"INSERT INTO DEPARTS(DEPTNO) VALUES('1')", "INSERT INTO DEPARTS(DEPTNO) VALUES('2')"});
  EXPECT_THROW(reader_.each_row("Select DEPTNO From DEPARTS", [](const Row&) { throw automation::Error(5); }),
               automation::Error);
  company_.run({"DELETE FROM DEPARTS"});
  EXPECT_EQ(reader_.count("Select Count(*) As N From DEPARTS"), 0);
}

TEST_P(ReaderOfACompany, QuotesTexts) {
  EXPECT_EQ(Reader::text_literal("it's"), "'it''s'");
}

INSTANTIATE_TEST_SUITE_P(Kinds, ReaderOfACompany, testing::Values("MSACCESS", "MSSQLSERVER"));

}  // namespace
}  // namespace tallyra::client
