#include "client/record_place.h"

#include <gtest/gtest.h>

#include "automation/convert.h"

namespace tallyra::client {
namespace {

using automation::Missing;
using automation::Value;

// The condition on the row that the call is about.
std::string row_of(const std::string& class_name, const std::string& member, std::vector<Value> arguments) {
  Call call;
  call.prog_id = "Tallyra." + class_name;
  call.member = member;
  call.arguments = std::move(arguments);
  return row_condition(*record_place(call.prog_id), call, '#');
}

TEST(RecordPlace, IsKnownOfClassesThatKeepRows) {
  ASSERT_NE(record_place("Tallyra.crevaddr"), nullptr);
  EXPECT_EQ(record_place("Tallyra.crevaddr")->table, "REVADDR");
  EXPECT_EQ(record_place("Tallyra.CStkrptFuns"), nullptr);
  EXPECT_EQ(record_place("Other.CRevAddr"), nullptr);
  EXPECT_EQ(record_place("CRevAddr"), nullptr);
}

TEST(RecordPlace, TellsTheRowOfAnUpdateOrADelete) {
  EXPECT_EQ(row_of("CRevAddr", "Update", {"A1"}), " Where ADDRNO='A1'");
  EXPECT_EQ(row_of("CRevAddr", "delete", {"O'Hara"}), " Where ADDRNO='O''Hara'");
  EXPECT_EQ(row_of("CCheckDetail", "Update", {"S1", "frame"}), " Where CHECKNO='S1' And PARTNO='frame'");
  EXPECT_EQ(row_of("CPartCostSet", "Update", {"7"}), " Where MTYPESN=7");
  EXPECT_EQ(row_of("CStockClose", "Update", {"2024-01-31"}), " Where CLOSEDT=#2024/01/31#");
}

TEST(RecordPlace, TellsALineByItsNumberOrElseByItsPart) {
  const std::vector<Value> key{"T1", "STK010POREV", "PO1", "P1"};
  const auto with_number = [&](Value number) {
    std::vector<Value> arguments = key;
    arguments.push_back(std::move(number));
    return row_of("CTranDetail", "Update", arguments);
  };
  const std::string by_part = " Where TRANNO='T1' And REFERENCE='PO1' And PARTNO='P1'";
  EXPECT_EQ(row_of("CTranDetail", "Update", key), by_part);
  EXPECT_EQ(with_number(-1), by_part);
  EXPECT_EQ(with_number(Missing{}), by_part);
  EXPECT_EQ(with_number(7), " Where TRANNO='T1' And REFERENCE='PO1' And SN=7");
}

TEST(RecordPlace, TellsNothingOfOtherCallsAndOfKeysThatCannotBe) {
  EXPECT_EQ(row_of("CRevAddr", "Insert", {"A1"}), "");
  EXPECT_EQ(row_of("CRevAddr", "Read", {"A1"}), "");
  EXPECT_EQ(row_of("CRevAddr", "Update", {}), "");
  EXPECT_EQ(row_of("CStockClose", "Delete", {"2024/01/31"}), "") << "deletes more than its record";
  EXPECT_EQ(row_of("CStockClose", "Update", {"soon"}), "");
  EXPECT_EQ(row_of("CPartCostSet", "Update", {"seven"}), "");
}

TEST(RecordPlace, KnowsTheMembersThatWriteColumns) {
  for (const char* member : {"Insert", "update", "InsertRTN", "UPDATERTN"})
    EXPECT_TRUE(writes_columns(member)) << member;
  for (const char* member : {"Delete", "Read", "STKMonthClose", ""})
    EXPECT_FALSE(writes_columns(member)) << member;
}

}  // namespace
}  // namespace tallyra::client
