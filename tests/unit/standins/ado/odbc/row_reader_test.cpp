#include "standins/ado/odbc/row_reader.h"

#include <memory>
#include <optional>

#include "automation/bytes.h"
#include "automation/convert.h"
#include "standins/ado/odbc/odbc_environment.h"
#include "standins/ado/odbc/odbc_handle.h"
#include "standins/ado/odbc/statement_scope.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

// How a value is asked of a driver depends on what the driver can do. One driver that can do everything is
// treated here as each of the others.
class RowReaderTest : public ScratchDatabase, public testing::WithParamInterface<DriverTraits> {
 protected:
  RowReaderTest() {
    const std::string target = odbc_string();
    login.require(SQLDriverConnect(login.get(), nullptr, odbc_text(target.c_str()), SQL_NTS, nullptr, 0,
                                   nullptr, SQL_DRIVER_NOPROMPT));
  }
  ~RowReaderTest() override {
    statement.reset();
    SQLDisconnect(login.get());
  }

  std::unique_ptr<RowSet> read(std::string_view sql) {
    const SQLRETURN result =
        SQLExecDirect(handle(), odbc_text(sql.data()), static_cast<SQLINTEGER>(sql.size()));
    if (result != SQL_NO_DATA) statement->require(result);
    SQLSMALLINT columns = 0;
    statement->require(SQLNumResultCols(handle(), &columns));
    if (columns == 0) return nullptr;
    const StatementScope scope(handle());
    return reader.read(handle(), columns);
  }

  SQLHSTMT handle() {
    if (!statement) statement.emplace(SQL_HANDLE_DBC, login.get());
    return statement->get();
  }

  OdbcHandle<SQL_HANDLE_ENV> environment = make_odbc_environment();
  OdbcHandle<SQL_HANDLE_DBC> login{SQL_HANDLE_ENV, environment.get()};
  std::optional<OdbcHandle<SQL_HANDLE_STMT>> statement;
  RowReader reader{GetParam()};
};

TEST_P(RowReaderTest, ReadsTypedValues) {
  read("create table T(I integer, S smallint, D double, W timestamp, V varchar(20), M decimal(8,2), B bit)");
  read("insert into T values(7,-3,0.25,'2024-03-07 14:05:09','Größe','1.50',1)");
  read("insert into T values(null,null,null,null,null,null,null)");
  read("insert into T values(12345678901,70000,-2,'1899-12-29 06:00:00','','-0.01',0)");
  const auto rows = read("select * from T order by rowid");
  ASSERT_EQ(rows->row_count(), 3U);
  EXPECT_EQ(rows->value(0, 0), Value(7));
  EXPECT_EQ(rows->value(0, 1), Value(std::int16_t{-3}));
  EXPECT_EQ(rows->value(0, 2), Value(0.25));
  EXPECT_EQ(rows->value(0, 3), Value(*automation::date_from_civil({2024, 3, 7, 14, 5, 9})));
  EXPECT_EQ(rows->value(0, 4), Value("Größe"));
  EXPECT_EQ(automation::to_text(rows->value(0, 5)), "1.5");
  EXPECT_EQ(rows->value(0, 6), Value(true));
  for (std::size_t column = 0; column < 7; ++column)
    EXPECT_EQ(rows->value(1, column), Value(automation::Null{})) << column;
  EXPECT_EQ(rows->value(2, 0), Value(std::int64_t{12345678901}));
  EXPECT_EQ(rows->value(2, 1), Value(std::int32_t{70000}));
  EXPECT_EQ(rows->value(2, 2), Value(-2.0));
  EXPECT_EQ(rows->value(2, 3), Value(automation::Date{-1.25}));
  EXPECT_EQ(rows->value(2, 4), Value(""));
  EXPECT_EQ(automation::to_text(rows->value(2, 5)), "-0.01");
  EXPECT_EQ(rows->value(2, 6), Value(false));
}

TEST_P(RowReaderTest, ReadsLongValuesBetweenShortOnes) {
  read("create table L(A integer, M text, N integer, X blob, V varchar(20))");
  for (const int length : {0, 10, 255, 256, 4095, 4096, 50000}) {
    read("delete from L");
    const std::string text(static_cast<std::size_t>(length), 'x');
    read("insert into L values(1,'" + text + "',2,x'00FF10','end')");
    read("insert into L values(3,null,4,null,'null')");
    const auto rows = read("select * from L order by A");
    ASSERT_EQ(rows->row_count(), 2U);
    EXPECT_EQ(rows->value(0, 0), Value(1));
    EXPECT_TRUE(rows->value(0, 1) == Value(text)) << length;
    EXPECT_EQ(rows->value(0, 2), Value(2));
    const Value bytes = rows->value(0, 3);
    ASSERT_TRUE(bytes.holds<automation::Opaque>());
    EXPECT_EQ(dynamic_cast<const automation::Bytes&>(**bytes.get_if<automation::Opaque>()).content(),
              std::string_view("\0\xFF\x10", 3));
    EXPECT_EQ(rows->value(0, 4), Value("end"));
    EXPECT_EQ(rows->value(1, 1), Value(automation::Null{}));
    EXPECT_EQ(rows->value(1, 2), Value(4));
    EXPECT_EQ(rows->value(1, 3), Value(automation::Null{}));
  }
}

INSTANTIATE_TEST_SUITE_P(Drivers, RowReaderTest,
                         testing::Values(DriverTraits{true, true, false}, DriverTraits{false, true, false},
                                         DriverTraits{false, false, false}),
                         [](const auto& driver) {
                           return std::string(driver.param.is_sqlite ? "TextOnly" : "Exact") +
                                  (driver.param.rereads_bound_columns ? "Rereading" : "ReadingOnce");
                         });

}  // namespace
}  // namespace tallyra::standins::ado::test
