#include "standins/ado/arguments.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/unit/automation/error_of.h"

namespace tallyra::standins::ado {
namespace {

using automation::Argument;
using automation::error_of;
using automation::Missing;
using automation::Value;

constexpr std::int32_t wrong = 3001;

TEST(AdoArguments, ThatCannotBeConvertedAreError3001) {
  EXPECT_EQ(integer_value("12"), 12);
  EXPECT_EQ(text_value(12), "12");
  EXPECT_EQ(error_of([] { integer_value("twelve"); }), wrong);
  EXPECT_EQ(error_of([] { integer_value(1e20); }), wrong);
  EXPECT_EQ(error_of([] { text_value(automation::Null{}); }), wrong);
}

TEST(AdoArguments, ThatAreAbsentAreNothing) {
  const Value given(7);
  const Value left_out(Missing{});
  const std::vector<Argument> arguments{given, left_out};
  EXPECT_EQ(integer_argument(arguments, 0), 7);
  EXPECT_EQ(integer_argument(arguments, 1), std::nullopt);
  EXPECT_EQ(integer_argument(arguments, 2), std::nullopt);
  EXPECT_EQ(text_argument(arguments, 0), "7");
  EXPECT_EQ(text_argument(arguments, 1), std::nullopt);
}

TEST(AdoArguments, ATextIsNotCopied) {
  std::string storage;
  const Value text("Select 1");
  EXPECT_EQ(text_view(text, storage).data(), text.get_if<std::string>()->data());
  EXPECT_EQ(text_view(1.5, storage), "1.5");
  EXPECT_EQ(storage, "1.5");
}

TEST(AdoArguments, OfAnEnumerationAreInItsRange) {
  EXPECT_EQ(cursor_location(3), CursorLocation::client);
  EXPECT_EQ(cursor_type(-1), CursorType::forward_only);
  EXPECT_EQ(cursor_type(3), CursorType::fixed);
  EXPECT_EQ(lock_type(-1), LockType::read_only);
  EXPECT_EQ(lock_type(4), LockType::batch_optimistic);
  EXPECT_EQ(execute_options(2047), 2047);
  for (const std::int32_t number : {1, 4, -1})
    EXPECT_EQ(error_of([&] { cursor_location(number); }), wrong) << number;
  for (const std::int32_t number : {4, -2})
    EXPECT_EQ(error_of([&] { cursor_type(number); }), wrong) << number;
  for (const std::int32_t number : {0, 5, -2})
    EXPECT_EQ(error_of([&] { lock_type(number); }), wrong) << number;
  for (const std::int32_t number : {-2, 2048})
    EXPECT_EQ(error_of([&] { execute_options(number); }), wrong) << number;
}

TEST(AdoArguments, ASourceIsAStatementOrATable) {
  std::string storage;
  EXPECT_EQ(statement_of("Select 1", unspecified, storage), "Select 1");
  EXPECT_EQ(statement_of("Select 1", execute_option::text, storage), "Select 1");
  EXPECT_EQ(statement_of("PARTS", execute_option::table, storage), "SELECT * FROM PARTS");
  EXPECT_EQ(statement_of("PARTS", execute_option::table_direct, storage), "SELECT * FROM PARTS");
  EXPECT_EQ(statement_of("P", execute_option::stored_procedure, storage), "{call P}");
  for (const char* blank : {"", " ", "\t\r\n "})
    EXPECT_EQ(error_of([&] { statement_of(blank, unspecified, storage); }), wrong);
}

}  // namespace
}  // namespace tallyra::standins::ado
