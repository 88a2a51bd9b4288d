#include "schema/description.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using namespace tallyra::schema;

const Table& table_named(std::string_view name) {
  const auto found = std::ranges::find(tables(), name, &Table::name);
  EXPECT_NE(found, tables().end()) << name;
  return *found;
}

const Column& column_of(const Table& table, std::string_view name) {
  const auto found = std::ranges::find(table.columns, name, &Column::name);
  EXPECT_NE(found, table.columns.end()) << table.name << "." << name;
  return *found;
}

TEST(SchemaDescription, GivesEveryTableAndColumnANameOnce) {
  std::set<std::string_view> names;
  for (const Table& table : tables()) {
    EXPECT_TRUE(names.insert(table.name).second) << table.name;
    std::set<std::string_view> columns;
    for (const Column& column : table.columns) {
      EXPECT_TRUE(columns.insert(column.name).second) << table.name << "." << column.name;
    }
  }
}

// 255 is the longest text of a column that every engine searches and sorts.
TEST(SchemaDescription, GivesEveryTextALengthThatEveryEngineHas) {
  for (const Table& table : tables()) {
    for (const Column& column : table.columns) {
      EXPECT_EQ(column.kind == Kind::text, column.length > 0) << table.name << "." << column.name;
      EXPECT_LE(column.length, 255) << table.name << "." << column.name;
    }
  }
}

TEST(SchemaDescription, KeysAndIndexesConsistOfColumnsAndKeysAreNeverNull) {
  for (const Table& table : tables()) {
    for (const auto name : table.key)
      EXPECT_FALSE(column_of(table, name).nullable) << table.name << "." << name;
    for (const Index& index : table.indexes) {
      EXPECT_TRUE(index.name.starts_with(table.name)) << index.name;
      for (const auto name : index.columns) column_of(table, name);
      if (!index.unless_empty.empty()) column_of(table, index.unless_empty);
    }
  }
}

// What is compared in one statement has one idea of blanks, or an engine could not follow both.
TEST(SchemaDescription, TrailingBlanksDoNotCountInNumbersOfDepartmentsAndSuppliersOnly) {
  std::string found;
  for (const Table& table : tables()) {
    for (const Column& column : table.columns) {
      if (!column.trailing_blanks_count) found.append(table.name).append(".").append(column.name).append(" ");
    }
  }
  EXPECT_EQ(found,
            "STKTRANHD.DEPTNOFR STKTRANHD.DEPTNOTO STKCHECKHD.DEPTNO STKCONTROLLER.DEPTNO DEPARTS.DEPTNO "
            "SUPPLIERS.SUPPLIERS POHD.SUPPLIERNO COHD.DEPTNO ");
}

TEST(SchemaDescription, DatesThatStatementsCompareAreChecked) {
  for (const auto& [table, column] : {std::pair{"STKTRANHD", "TRANDT"}, std::pair{"STKCHECKHD", "CHECKDT"},
                                      std::pair{"STKCLOSEHD", "CLOSEDT"}}) {
    EXPECT_TRUE(column_of(table_named(table), column).compared) << table;
  }
}

}  // namespace
