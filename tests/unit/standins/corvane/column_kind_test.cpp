#include "standins/corvane/column_kind.h"

#include <gtest/gtest.h>

#include <vector>

namespace tallyra::standins::corvane {
namespace {

void expect_kind(ColumnKind kind, const std::vector<std::int32_t>& data_types) {
  for (const std::int32_t type : data_types) EXPECT_EQ(column_kind(type), kind) << type;
}

TEST(ColumnKind, IsToldByTheTypeOfTheField) {
  expect_kind(ColumnKind::whole_number, {2, 3, 16, 17, 18, 19, 20, 21});
  expect_kind(ColumnKind::number, {4, 5, 6, 14, 131, 139});
  expect_kind(ColumnKind::date, {7, 133, 135});
  expect_kind(ColumnKind::text, {8, 72, 129, 130, 200, 201, 202, 203});
  expect_kind(ColumnKind::boolean, {11});
  expect_kind(ColumnKind::any, {12});
}

TEST(ColumnKind, OfATypeWithoutALiteralIsUnsupported) {
  expect_kind(ColumnKind::unsupported, {0, 1, 9, 13, 64, 128, 132, 134, 136, 204, 205, -1, 8192});
}

}  // namespace
}  // namespace tallyra::standins::corvane
