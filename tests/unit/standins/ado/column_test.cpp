#include "automation/bytes.h"
#include "automation/convert.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

using automation::Currency;
using automation::Date;
using automation::Decimal;
using automation::Null;

class ColumnTypeTest : public ScratchDatabase {
 protected:
  // The column of one table with one row.
  Object column(std::string_view declaration, std::string_view literal) {
    if (is_true(scalar(connection, "select count(*) from sqlite_master where name='C'")))
      execute(connection, "drop table C");
    execute(connection, "create table C(X " + std::string(declaration) + ")");
    execute(connection, "insert into C values(" + std::string(literal) + ")");
    recordset = open_recordset(connection, "select X from C", {3, 3});
    return field(recordset, "X");
  }

  Object connection = open_connection();
  Object recordset;
};

Value day(int year, int month, int day_of_month, int hour = 0, int minute = 0, int second = 0) {
  return *automation::date_from_civil({year, month, day_of_month, hour, minute, second});
}

TEST_F(ColumnTypeTest, ValuesComeOutAsTheirColumnsAreDeclared) {
  struct Row {
    std::string_view declaration;
    std::string_view literal;
    Value value;
    std::int32_t type;
  };
  const Row rows[] = {
      {"integer", "42", 42, 3},
      {"integer", "-2147483648", std::int32_t{-2147483647 - 1}, 3},
      {"integer", "2147483648", std::int64_t{2147483648}, 3},
      {"integer", "-9223372036854775807", std::int64_t{-9223372036854775807}, 3},
      {"bigint", "7", 7, 20},
      {"bigint", "12345678901", std::int64_t{12345678901}, 20},
      {"smallint", "7", std::int16_t{7}, 2},
      {"smallint", "70000", std::int32_t{70000}, 2},
      {"tinyint", "255", std::uint8_t{255}, 17},
      {"bit", "1", true, 11},
      {"boolean", "0", false, 11},
      {"double", "1.5", 1.5, 5},
      {"double", "3", 3.0, 5},
      {"double", "-1e300", -1e300, 5},
      {"float", "0.25", 0.25, 5},
      {"real", "0.25", 0.25, 5},
      {"decimal(12,4)", "'1.2500'", *Decimal::parse("1.25"), 131},
      {"numeric(10,2)", "-3.25", *Decimal::parse("-3.25"), 131},
      {"money", "2.5", Currency{25000}, 6},
      {"currency", "-0.0001", Currency{-1}, 6},
      {"timestamp", "'2024-03-07 14:05:09'", day(2024, 3, 7, 14, 5, 9), 135},
      {"timestamp", "'2024-03-07 00:00:00'", day(2024, 3, 7), 135},
      {"datetime", "'1899-12-29 06:00:00'", Date{-1.25}, 135},
      {"date", "'2024-03-07'", day(2024, 3, 7), 133},
      {"varchar(20)", "'text'", "text", 202},
      {"varchar(20)", "''", "", 202},
      {"varchar(20)", "'1.50'", "1.50", 202},
      {"char(4)", "'ab  '", "ab  ", 202},
      {"text", "'memo'", "memo", 203},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.declaration) + " " + std::string(row.literal));
    const Object x = column(row.declaration, row.literal);
    EXPECT_EQ(x.get("Value"), row.value);
    EXPECT_EQ(x.get("Type"), Value(row.type));
  }
}

TEST_F(ColumnTypeTest, NullIsNullInEveryColumn) {
  for (const std::string_view declaration : {"integer", "smallint", "double", "bit", "decimal(12,4)", "money",
                                             "timestamp", "date", "varchar(20)", "text", "blob"})
    EXPECT_EQ(column(declaration, "null").get("Value"), Value(Null{})) << declaration;
}

TEST_F(ColumnTypeTest, WhatIsNotOfTheColumnsTypeStaysWhatItIs) {
  struct Row {
    std::string_view declaration;
    std::string_view literal;
    Value value;
  };
  const Row rows[] = {
      {"timestamp", "'no date'", "no date"},
      {"timestamp", "'2024/03/07'", "2024/03/07"},
      {"timestamp", "'2024-02-30 00:00:00'", "2024-02-30 00:00:00"},
      {"timestamp", "'2024-03-07 24:00:00'", "2024-03-07 24:00:00"},
      {"timestamp", "''", ""},
      {"timestamp", "'2024-03-07 1'", "2024-03-07 1"},
      {"integer", "'many'", "many"},
      {"integer", "1.5", 1.5},
      {"double", "'much'", "much"},
      {"bit", "'maybe'", "maybe"},
      {"money", "0.00001", "1.0e-05"},
      {"decimal(12,4)", "'dear'", "dear"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(column(row.declaration, row.literal).get("Value"), row.value)
        << row.declaration << ' ' << row.literal;
}

TEST_F(ColumnTypeTest, DatesWithoutTimeAndWithFractionsAreDates) {
  EXPECT_EQ(column("timestamp", "'2024-03-07'").get("Value"), day(2024, 3, 7));
  EXPECT_EQ(column("timestamp", "'2024-03-07T14:05:09'").get("Value"), day(2024, 3, 7, 14, 5, 9));
  const Value half = column("timestamp", "'2024-03-07 00:00:00.500'").get("Value");
  ASSERT_TRUE(half.holds<Date>());
  EXPECT_NEAR(half.get_if<Date>()->serial, 45358 + 0.5 / 86400, 1e-9);
}

TEST_F(ColumnTypeTest, ColumnsTellSizeAndPrecision) {
  struct Row {
    std::string_view declaration;
    std::int32_t size;
    int precision;
  };
  const Row rows[] = {{"integer", 4, 10}, {"smallint", 2, 5},       {"double", 8, 15},
                      {"bit", 2, 255},    {"varchar(20)", 20, 255}, {"timestamp", 16, 19}};
  for (const Row& row : rows) {
    const Object x = column(row.declaration, "null");
    EXPECT_EQ(number(x.get("DefinedSize")), row.size) << row.declaration;
    EXPECT_EQ(number(x.get("Precision")), row.precision) << row.declaration;
  }
}

class ExpressionTest : public ScratchDatabase {
 protected:
  ExpressionTest() {
    execute(connection, "create table T(G integer, D double, I integer, S varchar(20), W timestamp)");
    execute(connection,
            "insert into T values(1,null,null,null,null),"
            "(2,1.25,7,'text','2024-03-07 00:00:00'),(2,1.25,8,'a','2024-03-08 00:00:00')");
  }

  Object connection = open_connection();
};

TEST_F(ExpressionTest, ComeOutTyped) {
  struct Row {
    std::string_view expression;
    Value value;
    std::int32_t type;
  };
  const Row rows[] = {
      {"count(*)", 3, 3},
      {"sum(D)", 2.5, 5},
      {"sum(D)*2", 5.0, 5},
      {"sum(I)", 15, 3},
      {"sum(D*I)", 18.75, 5},
      {"max(S)", "text", 202},
      {"max(W)", day(2024, 3, 8), 135},
      {"min(S)||'!'", "a!", 202},
      {"coalesce(sum(D),0)", 2.5, 5},
      {"1+1", 2, 3},
      {"'2024'", "2024", 202},
      {"null", Null{}, 202},
  };
  for (const Row& row : rows) {
    const Object rows_of =
        open_recordset(connection, "select " + std::string(row.expression) + " as X from T");
    EXPECT_EQ(value(rows_of, "X"), row.value) << row.expression;
    EXPECT_EQ(field(rows_of, "X").get("Type"), Value(row.type)) << row.expression;
  }
}

TEST_F(ExpressionTest, SumsOfNothingAreNull) {
  const Object rows =
      open_recordset(connection, "select sum(D) as X, count(*) as N, max(W) as L from T where G=9");
  EXPECT_EQ(value(rows, "X"), Value(Null{}));
  EXPECT_EQ(value(rows, "N"), Value(0));
  EXPECT_EQ(value(rows, "L"), Value(Null{}));
}

TEST_F(ExpressionTest, AreTypedAlsoWhenTheFirstRowHasNone) {
  const Object rows = open_recordset(
      connection, "select G, sum(D) as X, sum(I) as N, max(S) as M, max(W) as L from T group by G order by G",
      {3, 3});
  EXPECT_EQ(value(rows, "X"), Value(Null{}));
  rows.call("MoveNext");
  EXPECT_EQ(value(rows, "X"), Value(2.5));
  EXPECT_EQ(value(rows, "N"), Value(15));
  EXPECT_EQ(value(rows, "M"), Value("text"));
  EXPECT_EQ(value(rows, "L"), day(2024, 3, 8));
}

TEST_F(ExpressionTest, OfTextStayTextWhenTheyLookLikeSomethingElse) {
  struct Row {
    std::string_view sql;
    Value last;
  };
  const Row rows[] = {
      {"select '12' as X", "12"},
      {"select null as X union all select '0012' order by 1", "0012"},
      {"select null as X union all select '1e5' order by 1", "1e5"},
      {"select null as X union all select '+5' order by 1", "+5"},
      {"select '2024-03-07 00:00:00' as X union all select 'then' order by 1", "then"},
      {"select '2024-03-07' as X", "2024-03-07"},
  };
  for (const Row& row : rows) {
    const Object recordset = open_recordset(connection, row.sql, {3, 3});
    recordset.call("MoveLast");
    EXPECT_EQ(value(recordset, "X"), row.last) << row.sql;
  }
}

TEST_F(ColumnTypeTest, TextsOfAnyLengthComeOutWhole) {
  execute(connection, "create table L(I integer, S varchar(10), M text)");
  const Object insert_point = connection;
  for (const int length : {0, 1, 40, 41, 80, 81, 255, 256, 257, 1000, 4095, 4096, 4097, 100000, 3000000}) {
    execute(connection, "delete from L");
    const std::string text(static_cast<std::size_t>(length), 'x');
    execute(connection, "insert into L values(1,'" + text + "','" + text + "y')");
    execute(connection, "insert into L values(2,'short','after')");
    const Object rows = open_recordset(insert_point, "select S,M,I from L order by I", {3, 3});
    EXPECT_TRUE(value(rows, "S") == Value(text)) << length;
    EXPECT_TRUE(value(rows, "M") == Value(text + "y")) << length;
    EXPECT_EQ(value(rows, "I"), Value(1)) << length;
    rows.call("MoveNext");
    EXPECT_EQ(value(rows, "S"), Value("short"));
    EXPECT_EQ(value(rows, "M"), Value("after"));
  }
}

TEST_F(ColumnTypeTest, LongTextsInNarrowColumnsComeOutWhole) {
  const std::string text(500, 'z');
  EXPECT_EQ(column("integer", "'" + text + "'").get("Value"), Value(text));
  EXPECT_EQ(column("timestamp", "'" + text + "'").get("Value"), Value(text));
  EXPECT_EQ(column("double", "'" + text + "'").get("Value"), Value(text));
}

TEST_F(ColumnTypeTest, BytesTravelUnchanged) {
  for (const int size : {0, 1, 255, 256, 257, 5000, 300000}) {
    std::string bytes;
    std::string literal = "x'";
    for (int i = 0; i < size; ++i) {
      constexpr char digits[] = "0123456789ABCDEF";
      const int byte = i * 7 % 256;
      bytes += static_cast<char>(byte);
      literal.append(1, digits[byte / 16]).append(1, digits[byte % 16]);
    }
    const Value value = column("blob", literal + "'").get("Value");
    ASSERT_TRUE(value.holds<automation::Opaque>()) << size;
    const auto* content = dynamic_cast<const automation::Bytes*>(value.get_if<automation::Opaque>()->get());
    ASSERT_NE(content, nullptr);
    EXPECT_TRUE(content->content() == bytes) << size;
    EXPECT_EQ(automation::to_int32(recordset.get("RecordCount")), 1);
  }
}

TEST_F(ColumnTypeTest, EmbeddedNulsDoNoHarm) {
  const Value value = column("varchar(20)", "'a'||char(0)||'b'").get("Value");
  ASSERT_TRUE(value.is_text());
  EXPECT_EQ(value.get_if<std::string>()->substr(0, 1), "a");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
