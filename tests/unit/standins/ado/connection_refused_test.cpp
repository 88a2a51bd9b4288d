#include <filesystem>
#include <random>
#include <set>

#include "automation/convert.h"
#include "tests/unit/standins/ado/odbc/plain_odbc.h"
#include "tests/unit/standins/ado/scratch_database.h"

// Statements that would get at native code, at files or at other databases never reach the driver. Each is
// shown to do so when it does.
namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t permission_denied = -2147217911;
constexpr std::int32_t errors_in_command = -2147217900;

class RefusedStatementTest : public ScratchDatabase {
 protected:
  RefusedStatementTest() {
    execute(connection, "create table T(A varchar(20), D timestamp)");
    execute(connection, "insert into T(A) values('x')");
  }

  // A call that writes the file `marker`.
  std::string exporting() const { return "blob_export('x','" + marker() + "')"; }
  std::string marker() const { return path("marker"); }
  // Whether the file was there; it is gone afterwards.
  bool took_marker() const { return std::filesystem::remove(marker()); }

  std::int32_t refusal(const std::string& sql) const {
    const std::int32_t number = error_of([&] { execute(connection, sql); });
    EXPECT_EQ(error_of([&] { open_recordset(connection, sql); }), number) << sql;
    EXPECT_FALSE(took_marker()) << sql;
    return number;
  }

  Object connection = open_connection();
};

TEST_F(RefusedStatementTest, DoesNotWriteAFileHoweverItIsWritten) {
  const PlainOdbc plain(odbc_string());
  const std::string call = exporting();
  const std::string arguments = call.substr(call.find('('));
  for (const std::string& sql : {
           "select " + call,
           "SELECT Blob_Export" + arguments,
           "select [blob_export]" + arguments,
           "select \"BLOB_EXPORT\" " + arguments,
           "select `blob_export`/* a */" + arguments,
           "select blob_export -- b\n" + arguments,
           "select blob_export \v" + arguments,
           "select \xEF\xBB\xBF" + call,
           "select {fn " + call + "}",
           "select {oj " + call + "}",
           "select {call " + call + "}",
           "select /* ' */ '{' ' || " + call + "}",
           "select * from T where A='' or " + call + "='1'",
           "update T set A=" + call,
           "insert into T(A) values(" + call + ")",
           "delete from T where A=" + call,
           "with x as (select " + call + ") select * from x",
           "vacuum into '" + marker() + "'",
           "create table if not exists T(A);vacuum into '" + marker() + "'",
       }) {
    plain.run(sql);
    EXPECT_TRUE(took_marker()) << "harmless, and so no test: " << sql;
    const std::int32_t number = refusal(sql);
    EXPECT_EQ(number, sql.starts_with("create") ? errors_in_command : permission_denied) << sql;
  }
}

TEST_F(RefusedStatementTest, DoesNotOpenAnotherDatabase) {
  const PlainOdbc plain(odbc_string());
  for (const std::string& sql :
       {"attach '" + marker() + "' as m", "AtTaCh/* a */ database '" + marker() + "' as n"}) {
    EXPECT_TRUE(plain.run(sql)) << sql;
    EXPECT_TRUE(took_marker()) << sql;
    EXPECT_EQ(refusal(sql), permission_denied) << sql;
  }
}

TEST_F(RefusedStatementTest, IsToldWithWhatWasRefused) {
  const std::string sql = "select " + exporting();
  EXPECT_EQ(description_of([&] { execute(connection, sql); }),
            "The statement reaches beyond the database: blob_export");
  EXPECT_EQ(description_of([&] { execute(connection, "create table U(A); drop table T"); }),
            "only one SQL statement allowed");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(1));
}

TEST_F(RefusedStatementTest, IsRefusedBehindTheNameOfATable) {
  const Object recordset = automation::create("ADODB.Recordset");
  constexpr std::int32_t table = 2;
  EXPECT_EQ(error_of([&] { recordset.call("Open", "T where A=" + exporting(), connection, 0, 1, table); }),
            permission_denied);
  EXPECT_FALSE(took_marker());
}

TEST_F(RefusedStatementTest, LeavesAnOpenTransactionAlone) {
  connection.call("BeginTrans");
  execute(connection, "insert into T(A) values('y')");
  EXPECT_EQ(refusal("insert into T(A) values(" + exporting() + ")"), permission_denied);
  connection.call("CommitTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(2));
}

// Of the functions that are not the engine's own each is known: as harmless, or it is refused.
TEST_F(RefusedStatementTest, IsEachThatUsesAFunctionTheDriverAdds) {
  connection.call("Close");
  connection.call("Open", "Provider=MSDASQL;" + odbc_string());
  const std::set<std::string> harmless{"bm25",       "fts5",       "fts5_source_id", "highlight",
                                       "match",      "matchinfo",  "offsets",        "optimize",
                                       "rtreecheck", "rtreedepth", "rtreenode",      "snippet"};
  const Object names =
      open_recordset(connection, "select distinct name from pragma_function_list where builtin=0");
  int refused = 0;
  for (; !is_true(names.get("EOF")); names.call("MoveNext")) {
    const std::string name = automation::to_text(value(names, 0));
    if (harmless.contains(name)) continue;
    EXPECT_EQ(refusal("select " + name + "(1)"), permission_denied) << name;
    ++refused;
  }
  EXPECT_GE(refused, 2) << "the driver's own two at least";
}

// What a key may do to the text around it: quotes, comments, brackets, escape sequences of the driver, odd
// blanks.
std::string mangled(const std::vector<std::string>& attack, std::mt19937& random) {
  static const std::vector<std::string> noise{" ",
                                              "\n",
                                              "\v",
                                              " \v",
                                              "\xEF\xBB\xBF",
                                              "--",
                                              "-- '\n",
                                              "/*",
                                              "*/",
                                              "/* ' */",
                                              "/* \" */",
                                              "/**/",
                                              "{fn ",
                                              "{",
                                              "}",
                                              "{d ",
                                              "'",
                                              "''",
                                              "\"",
                                              "`",
                                              "[",
                                              "]",
                                              "[']",
                                              "`'`",
                                              "(",
                                              ")",
                                              ",",
                                              ";",
                                              "$a(",
                                              "@b(",
                                              ":c",
                                              "#",
                                              "?",
                                              "1",
                                              "or",
                                              "as x",
                                              "select ",
                                              "union select ",
                                              "%",
                                              "\\",
                                              "x'",
                                              "#2024/03/31#",
                                              " Top 5 "};
  std::string sql;
  for (const std::string& piece : attack) {
    while (random() % 5 == 0) sql += noise[random() % noise.size()];
    sql += piece;
  }
  return sql;
}

TEST_F(RefusedStatementTest, WritesNoFileHoweverItIsMangled) {
  const PlainOdbc plain(odbc_string());
  const std::string quoted = "'" + marker() + "'";
  const std::vector<std::vector<std::string>> attacks{
      {"select ", "blob_export", "(", "'x'", ",", quoted, ")"},
      {"select * from T where A='", "' or ", "blob_export", "(", "'x'", ",", quoted, ")", " or '", "'='"},
      {"select ", "/* ' */", " '{' ' || ", "blob_export", "(", "'x'", ",", quoted, ")", "}"},
      {"select 1 ", ";", "vacuum", " into ", quoted},
      {"create table if not exists U(A)", ";", "vacuum", " into ", quoted, ";"},
      {"delete ", "* ", "from T where D=", "'2024/3/31'", " or ", "blob_export", "('x',", quoted, ")"}};
  std::mt19937 random(20240403);
  int effective = 0;
  for (int i = 0; i < 6000; ++i) {
    const std::string sql = mangled(attacks[random() % attacks.size()], random);
    plain.run(sql);
    effective += took_marker() ? 1 : 0;
    error_of([&] { execute(connection, sql); });
    ASSERT_FALSE(took_marker()) << sql;
  }
  EXPECT_GE(effective, 500) << "too few of them would have written it";
  RecordProperty("effective", effective);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
