#include "automation/date.h"

#include <gtest/gtest.h>

namespace tallyra::automation {
namespace {

TEST(Date, IsMadeOfDaysThatExistOnly) {
  EXPECT_EQ(date_from_civil({2024, 2, 29})->serial, 45351);
  EXPECT_EQ(date_from_civil({100, 1, 1})->serial, -657434);
  EXPECT_EQ(date_from_civil({9999, 12, 31})->serial, 2958465);
  for (const CivilTime& none :
       {CivilTime{2024, 2, 30}, CivilTime{2023, 2, 29}, CivilTime{2024, 0, 1}, CivilTime{2024, 13, 1},
        CivilTime{2024, 1, 0}, CivilTime{2024, 1, 32}, CivilTime{99, 1, 1}, CivilTime{10000, 1, 1},
        // A byte, and the sixteen bits of a year, would make a day of these.
        CivilTime{2024, 257, 1}, CivilTime{2024, -255, 1}, CivilTime{2024, 1, 257}, CivilTime{2024, 1, -255},
        CivilTime{65536 + 2024, 1, 1}, CivilTime{2024, 1, 1, 24}, CivilTime{2024, 1, 1, 0, -1}})
    EXPECT_FALSE(date_from_civil(none).has_value()) << none.year << '/' << none.month << '/' << none.day;
}

}  // namespace
}  // namespace tallyra::automation
