#include "standins/corvane/issued_documents.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/company_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

TEST(IssuedDocuments, StandInTheTableOfTheirKeyColumn) {
  EXPECT_EQ(document_table("TRANNO"), "STKTRANHD");
  EXPECT_EQ(document_table("checkno"), "STKCHECKHD");
  try {
    document_table("PARTNO");
    ADD_FAILURE();
  } catch (const automation::Error& error) {
    EXPECT_EQ(error.number(), failure::bad_key_request);
  }
}

class HighestCounter : public ::testing::Test {
 protected:
  void store(const std::string& number) {
    database_.run({"Insert Into STKTRANHD(TRANNO,TRANTYPE) Values('" + number + "','T')"});
  }
  std::int32_t highest() const { return highest_stored_counter(database_.open(), "TRANNO", series_); }

  CompanyDatabase database_;
  const Series series_ = Series::running("STK027CLOSE");
};

TEST_F(HighestCounter, IsZeroWithoutADocumentOfTheSeries) {
  EXPECT_EQ(highest(), 0);
  store("026CLOSE00000009");
  store("028CLOSE00000009");
  EXPECT_EQ(highest(), 0);
}

TEST_F(HighestCounter, IsThatOfTheLastNumber) {
  for (const char* number : {"027CLOSE00000002", "027CLOSE00000041", "027CLOSE00000007"}) store(number);
  EXPECT_EQ(highest(), 41);
}

TEST_F(HighestCounter, LooksBelowTextsThatAreNoNumbers) {
  for (const char* number : {"027CLOSE00000041", "027CLOSE0000005X", "027CLOSE00000042A", "027CLOSE9"})
    store(number);
  EXPECT_EQ(highest(), 41);
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
