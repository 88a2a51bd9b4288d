#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "automation/create.h"
#include "automation/error.h"
#include "automation/value.h"
#include "tests/support/test_folder.h"

// What the tests of the ADO stand-in share. They see late-bound objects only, so that they can be held
// against any other implementation of the same ProgIDs.
namespace tallyra::standins::ado::test {

using automation::Object;
using automation::Value;

// A folder of its own for each test, gone afterwards.
class ScratchDatabase : public testing::Test {
 protected:
  ScratchDatabase();

  std::string path(std::string_view file) const;
  // Of the test's database, or of another in the same folder. Means the engine's own library where this build
  // has it, and ODBC under TALLYRA_TEST_OVER_ODBC: every test holds for both.
  std::string connection_string(std::string_view file = "test.db") const;
  // Without what chooses between the two.
  std::string odbc_string(std::string_view file = "test.db") const;

  // A database without tables, which is an empty file, unless it is there.
  void make_database(std::string_view file) const;

  Object open_connection() const;
  Object open_connection(std::string_view file) const;

 private:
  tests::TestFolder folder_;
};

struct Cursor {
  std::int32_t location = 2;
  std::int32_t type = 0;
};

Object open_recordset(const Object& connection, std::string_view sql, Cursor cursor = {});
void execute(const Object& connection, std::string_view sql);
// The first column of the first row.
Value scalar(const Object& connection, std::string_view sql);

Object fields(const Object& recordset);
Object field(const Object& recordset, const Value& name_or_index);
Value value(const Object& recordset, const Value& name_or_index);
// The values of a column from the current row to the end, as texts with a blank between.
std::string remaining(const Object& recordset, const Value& name_or_index);

// Whether both are one connection, told by what a client sees of it: over COM each reference to an object has
// a face of its own.
bool is_same_connection(const Value& one, const Object& other);

bool is_true(const Value& value);
std::int32_t number(const Value& value);

// The number of the Error that the use throws, 0 when it throws none.
std::int32_t error_of(const std::function<void()>& use);
std::string description_of(const std::function<void()>& use);

}  // namespace tallyra::standins::ado::test
