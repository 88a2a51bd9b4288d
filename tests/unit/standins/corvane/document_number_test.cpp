#include "standins/corvane/document_number.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "standins/corvane/failure.h"

namespace tallyra::standins::corvane {
namespace {

TEST(DocumentNumber, ARunningSeriesHasTheWordOfTheTypeAndEightDigits) {
  EXPECT_EQ(Series::running("STK027CLOSE").number(1), "027CLOSE00000001");
  EXPECT_EQ(Series::running("STK027CLOSE").number(99999999), "027CLOSE99999999");
  EXPECT_EQ(Series::running("STK027CLOSE").last_counter(), 99999999);
  EXPECT_EQ(Series::running("SHIP").number(12), "SHIP00000012");
}

TEST(DocumentNumber, ADailySeriesHasTheDayAndFourDigits) {
  EXPECT_EQ(Series::daily("STKCHECKISS", {2024, 3, 31}).number(1), "CHECKISS2403310001");
  EXPECT_EQ(Series::daily("STKCHECKISS", {2005, 11, 2}).number(9999), "CHECKISS0511029999");
  EXPECT_EQ(Series::daily("STKCHECKISS", {2024, 3, 31}).last_counter(), 9999);
}

TEST(DocumentNumber, ReadsTheCounterOfItsOwnNumbersOnly) {
  const Series series = Series::running("STK027CLOSE");
  EXPECT_EQ(series.counter_of("027CLOSE00000042"), 42);
  EXPECT_EQ(series.counter_of("027CLOSE99999999"), 99999999);
  for (const char* other : {"", "027CLOSE", "027CLOSE0000042", "027CLOSE000000421", "027CLOSE0000004X",
                            "027CLOSE-0000042", "027CLOSE 0000042", "026CLOSE00000042"})
    EXPECT_EQ(series.counter_of(other), std::nullopt) << other;
}

TEST(DocumentNumber, ATypeThatIsNoWordHasNoSeries) {
  for (const char* type : {"", "STK", "STK 1", "STK'1", "STK%", "STKé", "STK0123456789012345678901234"}) {
    try {
      Series::running(type);
      ADD_FAILURE() << type;
    } catch (const automation::Error& error) {
      EXPECT_EQ(error.number(), failure::bad_key_request) << type;
    }
  }
}

TEST(DocumentNumber, TheLongestTypeFillsThirtyCharacters) {
  EXPECT_EQ(Series::running("STK0123456789012345678901").number(1).size(), Series::longest_number);
}

}  // namespace
}  // namespace tallyra::standins::corvane
