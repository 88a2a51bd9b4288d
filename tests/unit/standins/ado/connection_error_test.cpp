#include <fstream>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class StatementErrorTest : public ScratchDatabase {
 protected:
  StatementErrorTest() {
    execute(connection, "create table T(A integer primary key, B varchar(20) not null)");
    execute(connection, "insert into T values(1,'one')");
  }

  Object connection = open_connection();
};

TEST_F(StatementErrorTest, HaveTheProvidersNumberAndTheDriversWords) {
  struct Row {
    std::string_view sql;
    std::int32_t number;
    std::string_view description;
  };
  const Row rows[] = {
      {"selec", -2147217900, "near \"selec\": syntax error"},
      {"select 'open", -2147217900, "unrecognized token: \"'open\""},
      {"select NOSUCH from T", -2147217900, "no such column: NOSUCH"},
      {"insert into T(NOSUCH) values(1)", -2147217900, "table T has no column named NOSUCH"},
      {"insert into T values(1)", -2147217900, "table T has 2 columns but 1 values were supplied"},
      {"create table T(A integer)", -2147217900, "table T already exists"},
      {"select 1; select 2", -2147217900, "only one SQL statement allowed"},
      {"select * from NOSUCH", -2147217865, "no such table: NOSUCH"},
      {"delete from NOSUCH", -2147217865, "no such table: NOSUCH"},
      {"insert into T values(1,'again')", -2147217873, "UNIQUE constraint failed: T.A"},
      {"insert into T values(2,null)", -2147217873, "NOT NULL constraint failed: T.B"},
      {"update T set A='x'", -2147217913, "datatype mismatch"},
      {"insert into T values(?,?)", -2147217904, "unbound parameters in query"},
      {"insert into T values(:a,@b)", -2147217900, "parameter marker count incorrect"},
      {"insert into T values(:a,?)", -2147217904, "unbound parameters in query"},
      {"insert into T values(?1,?2)", -2147217904, "unbound parameters in query"},
  };
  for (const Row& row : rows) {
    const auto by_execute = [&] { execute(connection, row.sql); };
    const auto by_open = [&] { open_recordset(connection, row.sql); };
    EXPECT_EQ(error_of(by_execute), row.number) << row.sql;
    EXPECT_EQ(description_of(by_execute), row.description) << row.sql;
    EXPECT_EQ(error_of(by_open), row.number) << row.sql;
    EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(1)) << row.sql;
  }
}

TEST_F(StatementErrorTest, AFileThatIsNoDatabaseFailsTheFirstStatement) {
  std::ofstream(path("letter.db")) << "This is a letter and not what the engine writes.";
  const Object other = open_connection("letter.db");
  EXPECT_EQ(error_of([&] { execute(other, "create table T(A integer)"); }), -2147467259);
  EXPECT_EQ(description_of([&] { execute(other, "create table T(A integer)"); }), "file is not a database");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
