#include "standins/ado/odbc/column_description.h"

#include "standins/ado/odbc/odbc_environment.h"
#include "standins/ado/odbc/odbc_handle.h"
#include "tests/unit/standins/ado/odbc/plain_odbc.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class ColumnDescription : public ScratchDatabase {
 protected:
  ColumnDescription() : plain_(odbc_string()) {
    EXPECT_TRUE(
        plain_.run("create table T(S smallint, I integer, N numeric(10,2), D double, M money, B boolean, "
                   "DT timestamp, X blob, V varchar(20))"));
  }

  std::vector<Column> columns_of(const std::string& sql) const {
    const OdbcHandle<SQL_HANDLE_STMT> statement(SQL_HANDLE_DBC, plain_.connection());
    statement.require(SQLExecDirect(statement.get(), odbc_text(sql.c_str()), SQL_NTS));
    SQLSMALLINT count = 0;
    statement.require(SQLNumResultCols(statement.get(), &count));
    return describe_columns(statement.get(), count, true, false);
  }

  PlainOdbc plain_;
};

TEST_F(ColumnDescription, HasNameAndTypeAsDeclared) {
  const struct {
    const char* name;
    DataType type;
  } rows[] = {{"S", DataType::small_int}, {"I", DataType::integer}, {"D", DataType::double_precision},
              {"M", DataType::currency},  {"B", DataType::boolean}, {"DT", DataType::time_stamp},
              {"X", DataType::bytes},     {"V", DataType::text}};
  const auto columns = columns_of("select S,I,D,M,B,DT,X,V from T");
  ASSERT_EQ(columns.size(), std::size(rows));
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(columns[i].name, rows[i].name);
    EXPECT_EQ(columns[i].type, rows[i].type) << rows[i].name;
    EXPECT_FALSE(columns[i].undeclared) << rows[i].name;
  }
  EXPECT_EQ(columns.back().defined_size, 20);
}

TEST_F(ColumnDescription, AnExpressionIsToldFromADeclaredText) {
  EXPECT_TRUE(columns_of("select max(DT) as Latest from T")[0].undeclared);
  EXPECT_EQ(columns_of("select max(DT) as Latest from T")[0].name, "Latest");
  EXPECT_FALSE(columns_of("select V from T")[0].undeclared);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
