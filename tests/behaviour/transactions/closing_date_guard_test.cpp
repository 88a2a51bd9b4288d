#include "automation/error.h"
#include "tests/behaviour/transactions/company.h"

namespace tallyra::transactions_test {
namespace {

using automation::Date;

class ClosingDate : public Company {
 protected:
  // ErrNumber; an error that came out is added to the end.
  std::string ask(const Value& date) const {
    const Object object = head();
    std::string raised;
    try {
      EXPECT_TRUE(object.call("ValidCloseDT", date).is_empty());
    } catch (const automation::Error& error) {
      raised = " raised " + std::to_string(error.number());
    }
    return std::to_string(static_cast<int>(automation::to_double(object.get("ErrNumber")))) + raised;
  }
};
TALLYRA_ON_BOTH_KINDS(ClosingDate);

TEST_P(ClosingDate, IsOpenAsLongAsNothingWasClosed) {
  EXPECT_EQ(ask("1900/01/01"), "0");
}

TEST_P(ClosingDate, IsClosedUpToAndWithTheDayOfTheLastClose) {
  given({"Insert Into STKCLOSEHD(CLOSEDT) Values('2024-02-29 00:00:00')",
         "Insert Into STKCLOSEHD(CLOSEDT) Values('2024-03-31 00:00:00')"});
  const struct {
    Value date;
    const char* verdict;
  } rows[] = {{"2024/02/28", "10000112"},
              {"2024/03/30", "10000112"},
              {"2024/03/31", "10000112"},
              {"2024/04/01", "0"},
              {Date{45382}, "10000112"},
              {Date{45383}, "0"},
              {"2024/03/31 00:00:00", "10000112"},
              {"2024/03/31 00:00:01", "0"},
              {Date{45382.25}, "0"}};
  for (const auto& [date, verdict] : rows) EXPECT_EQ(ask(date), verdict) << automation::to_text(date);
}

TEST_P(ClosingDate, ThatIsNoDateIsClosedWithAnException) {
  for (const char* date :
       {"2024/02/30", "31/01/2024", "2024/03/31 25:00", "14:05", "tomorrow", "2024/3/1/1"}) {
    EXPECT_EQ(ask(date), "10000112 raised 438") << date;
  }
}

// An empty text is the first day of 1900 to SQL Server; between # it is nothing that can be read.
TEST_P(ClosingDate, ThatIsEmptyNeverPassesOnceSomethingWasClosed) {
  const bool access = std::string(GetParam()) == "MSACCESS";
  for (const Value& empty : {Value(), Value(""), Value(" ")})
    EXPECT_EQ(ask(empty), access ? "10000112 raised 438" : "0");
  given({"Insert Into STKCLOSEHD(CLOSEDT) Values('2024-02-29 00:00:00')"});
  for (const Value& empty : {Value(), Value(""), Value(" ")})
    EXPECT_EQ(ask(empty), access ? "10000112 raised 438" : "10000112");
}

TEST_P(ClosingDate, ThatBreaksTheStatementIsClosedWithAnException) {
  EXPECT_EQ(ask("2024/03/31#'"), "10000112 raised 438");
}

TEST_P(ClosingDate, WithoutADatabaseIsClosed) {
  const Object object = head();
  EXPECT_EQ(delete_head(object, "T1", "STK010POREV").result, 100);
  object.put("ConnectionString", "DRIVER={SQLite3};Database=/no/such/folder/company.db");
  EXPECT_TRUE(object.call("ValidCloseDT", "2024/03/31").is_empty());
  EXPECT_EQ(outcome_of(object, 0), Failure{10000112});
}

}  // namespace
}  // namespace tallyra::transactions_test
