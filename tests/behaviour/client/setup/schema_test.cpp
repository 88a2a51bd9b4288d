#include "client/setup/schema.h"

#include <algorithm>
#include <fstream>

#include "client/database/reader.h"
#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, HasTheTablesOfTheNewestVersionOnceTheyAreMade) {
  if (registered_.is_sqlite()) {
    std::ofstream(file_) << "";
    db_ = "DRIVER={SQLite3};Database=" + file_;
  }
  {
    const Reader empty(db_, "MSACCESS");
    EXPECT_TRUE(tables_there(empty).empty());
    EXPECT_EQ(schema_version(empty), 0);
  }
  EXPECT_NE(make_tables(db_), "") << "it says what was done";
  const Reader reader(db_, "MSACCESS");
  const auto tables = tables_there(reader);
  for (const char* name : {"STKTRANHD", "STKTRANDT", "STKCLOSEHD", "USERRIGHTS"})
    EXPECT_NE(std::ranges::find(tables, name), tables.end()) << name;
  EXPECT_EQ(schema_version(reader), newest_schema_version());
}

TEST_F(NewDatabase, FromBeforeVersionsWereKeptIsOfTheFirst) {
  registered_.run({"DROP TABLE TALLYRASCHEMA"});
  EXPECT_EQ(schema_version(Reader(registered_.connection_string(), "MSACCESS")), 1);
}

}  // namespace
}  // namespace tallyra::client
