#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class UnicodeTest : public ScratchDatabase {};

TEST_F(UnicodeTest, ValuesAndConditions) {
  const Object connection = open_connection();
  execute(connection, "create table T(A varchar(20), N integer)");
  const std::string_view texts[] = {"中文部件",          "Größe Ω",   "части", "emoji 😀👩‍🏭",
                                    "e\u0301 combining", "\u00a0nbsp"};
  int index = 0;
  for (const std::string_view text : texts)
    execute(connection, "insert into T values('" + std::string(text) + "'," + std::to_string(index++) + ")");
  const Object rows = open_recordset(connection, "select A from T order by N", {3, 3});
  for (const std::string_view text : texts) {
    EXPECT_EQ(value(rows, "A"), Value(text));
    EXPECT_EQ(scalar(connection, "select count(*) from T where A='" + std::string(text) + "'"), Value(1))
        << text;
    rows.call("MoveNext");
  }
}

TEST_F(UnicodeTest, LongValuesAreNotCutWithinACharacter) {
  const Object connection = open_connection();
  execute(connection, "create table T(A varchar(10))");
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "中😀";
  execute(connection, "insert into T values('" + text + "')");
  EXPECT_TRUE(scalar(connection, "select A from T") == Value(text));
}

TEST_F(UnicodeTest, NamesOfTablesAndColumns) {
  const Object connection = open_connection();
  execute(connection, "create table [部门 表]([名称] varchar(20), [größe] double)");
  execute(connection, "insert into [部门 表] values('仓库',1.5)");
  const Object rows = open_recordset(connection, "select * from [部门 表]");
  EXPECT_EQ(field(rows, 0).get("Name"), Value("名称"));
  EXPECT_EQ(value(rows, "名称"), Value("仓库"));
  EXPECT_EQ(value(rows, "größe"), Value(1.5));
}

TEST_F(UnicodeTest, FileNames) {
  const std::string file = "库存 数据 😀.db";
  {
    const Object connection = open_connection(file);
    execute(connection, "create table T(A integer)");
  }
  const std::string utf8 = path(file);
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(std::u8string(utf8.begin(), utf8.end()))));
  EXPECT_EQ(scalar(open_connection(file), "select count(*) from T"), Value(0));
}

TEST_F(UnicodeTest, MessagesOfTheDriver) {
  const Object connection = open_connection();
  EXPECT_EQ(description_of([&] { execute(connection, "select * from 没有"); }), "no such table: 没有");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
