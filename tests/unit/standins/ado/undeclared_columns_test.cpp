#include "standins/ado/undeclared_columns.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace tallyra::standins::ado {
namespace {

using automation::Value;

// One column that an expression made; a null pointer is Null.
RowSet rows_of(std::initializer_list<const char*> texts, bool undeclared = true) {
  Column column;
  column.undeclared = undeclared;
  RowSet rows({column});
  for (const char* text : texts)
    *rows.add_row() =
        text ? Cell::of_data(Cell::Kind::text, text, std::string_view(text).size()) : Cell::null();
  settle_undeclared_columns(rows);
  return rows;
}

DataType type_of(std::initializer_list<const char*> texts) {
  return rows_of(texts).columns()[0].type;
}

TEST(UndeclaredColumns, OfDatesAloneAreDates) {
  const RowSet rows = rows_of({"2024-03-31 00:00:00", nullptr, "2024-04-01 12:00:00"});
  EXPECT_EQ(rows.columns()[0].type, DataType::time_stamp);
  EXPECT_EQ(rows.value(0, 0), Value(automation::Date{45382}));
  EXPECT_TRUE(rows.value(1, 0).is_null());
  EXPECT_EQ(type_of({"2024-03-31 00:00:00", "soon"}), DataType::text);
  EXPECT_EQ(type_of({"2024-03-31"}), DataType::text) << "date columns hold another form";
}

TEST(UndeclaredColumns, OfNumbersAreNumbersWhenTheFirstRowHasNone) {
  EXPECT_EQ(rows_of({nullptr, "12", "-7"}).value(2, 0), Value(-7));
  EXPECT_EQ(rows_of({nullptr, "1.5", "2"}).value(2, 0), Value(2.0));
  EXPECT_EQ(type_of({nullptr, "12"}), DataType::integer);
  EXPECT_EQ(type_of({nullptr, "1.0e-05", "12"}), DataType::double_precision);
  EXPECT_EQ(type_of({"12", "13"}), DataType::text) << "the engine itself called it a text";
}

TEST(UndeclaredColumns, StayTextsWhereOneIsNotAsTheEngineWritesNumbers) {
  for (const char* text :
       {"007", "+1", " 1", "1 ", "01.5", ".5", "1e5", "", "x", "-0", "99999999999999999999"})
    EXPECT_EQ(type_of({nullptr, text}), DataType::text) << text;
}

TEST(UndeclaredColumns, StayWithoutAValueAndWhenTheyAreDeclared) {
  EXPECT_EQ(type_of({}), DataType::text);
  EXPECT_EQ(type_of({nullptr, nullptr}), DataType::text);
  const RowSet declared = rows_of({"2024-03-31 00:00:00"}, false);
  EXPECT_EQ(declared.value(0, 0), Value("2024-03-31 00:00:00"));
}

}  // namespace
}  // namespace tallyra::standins::ado
