#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "tests/unit/standins/ado/dialect/rewriting.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::SqliteDialect;

std::string repeated(std::string_view piece, std::size_t bytes) {
  std::string text;
  text.reserve(bytes + piece.size());
  while (text.size() < bytes) text += piece;
  return text;
}

template <std::size_t N>
std::string soup(std::mt19937& random, const std::array<std::string_view, N>& words, std::size_t most) {
  std::string text;
  for (std::size_t left = random() % most; left > 0; --left) {
    text += words[random() % N];
    if (random() % 3 != 0) text += ' ';
  }
  return text;
}

TEST(HostileText, WithNothingToRewriteComesBackAsItIs) {
  constexpr auto words = std::to_array<std::string_view>({"Select",    "From",    "Where",    "Insert Into",
                                                          "Values",    "Update",  "Set",      "Inner Join",
                                                          "On",        "Union",   "Order By", "(",
                                                          ")",         ",",       ".",        ";",
                                                          "*",         "=",       "<",        ">=",
                                                          "<>",        "Between", "And",      "In",
                                                          "Not",       "As",      "'a'",      "'x'",
                                                          "'",         "\"",      "[",        "]",
                                                          "`",         "--",      "\n",       "/*",
                                                          "*/",        "#",       "##",       "# 1 #",
                                                          "STKTRANHD", "H",       "TRANDT",   "H.TRANDT",
                                                          "1",         "1.5e-",   "'b",       "\xC3\xA9",
                                                          "\xFF",      "@x",      "||",       "'2024/02/30'",
                                                          "Case",      "'14:05'", "Drop"});
  std::mt19937 random(20240331);
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (int i = 0; i < 20000; ++i) {
    const std::string sql = soup(random, words, 40);
    const std::string_view out = dialect.rewrite(sql);
    ASSERT_EQ(out, sql);
    ASSERT_EQ(out.data(), sql.data());
  }
}

constexpr auto all_words = std::to_array<std::string_view>({"Select",
                                                            "Top",
                                                            "5",
                                                            "(5)",
                                                            "Distinct",
                                                            "From",
                                                            "Where",
                                                            "Delete",
                                                            "*",
                                                            "T.*",
                                                            "T",
                                                            "U",
                                                            "Insert Into STKTRANHD(TRANDT,TRANNO) Values(",
                                                            "Insert Into",
                                                            "Values",
                                                            "Update",
                                                            "Set",
                                                            "Inner Join",
                                                            "On",
                                                            "Union",
                                                            "Order By",
                                                            "(",
                                                            ")",
                                                            ",",
                                                            ".",
                                                            ";",
                                                            "=",
                                                            "<",
                                                            "Between",
                                                            "And",
                                                            "In",
                                                            "Not",
                                                            "As",
                                                            "'a'",
                                                            "''",
                                                            "'",
                                                            "\"",
                                                            "[",
                                                            "]",
                                                            "--",
                                                            "\n",
                                                            "/*",
                                                            "*/",
                                                            "#",
                                                            "#2024/03/31#",
                                                            "'2024/03/31'",
                                                            "#3/7/2024 2:05 PM#",
                                                            "STKTRANHD",
                                                            "H",
                                                            "TRANDT",
                                                            "H.TRANDT",
                                                            "Max(",
                                                            "\xFF",
                                                            "||"});

TEST(HostileText, IsRewrittenTheSameByAnOldAndANewDialect) {
  std::mt19937 random(20240401);
  StockColumns columns;
  SqliteDialect old(columns);
  for (int i = 0; i < 10000; ++i) {
    const std::string sql = soup(random, all_words, 30);
    ASSERT_EQ(old.rewrite(sql), rewritten(sql)) << sql;
  }
}

TEST(HostileText, InValuesIsRewrittenTheSameOnTheShortWay) {
  constexpr auto values = std::to_array<std::string_view>({"'a'",
                                                           "''",
                                                           "'it''s'",
                                                           "1",
                                                           "-1.5",
                                                           "Null",
                                                           "'2024/03/31'",
                                                           "'2024-03-31 00:00:00'",
                                                           "#2024/03/31#",
                                                           "#",
                                                           "--",
                                                           ",",
                                                           ", ",
                                                           " ,",
                                                           ",",
                                                           ",",
                                                           ",",
                                                           ")",
                                                           "(",
                                                           "'",
                                                           ";",
                                                           "\n",
                                                           "/*",
                                                           "*/",
                                                           "[",
                                                           "||",
                                                           "x"});
  std::mt19937 random(20240402);
  StockColumns columns;
  SqliteDialect warm(columns);
  const std::string head = "Insert Into STKTRANHD (TRANDT,TRANNO,EDITDT) Values(";
  warm.rewrite(head + "1,2,3)");
  for (int i = 0; i < 20000; ++i) {
    const std::string sql = head + soup(random, values, 9) + ")";
    ASSERT_EQ(warm.rewrite(sql), rewritten(sql)) << sql;
  }
}

TEST(HostileText, CutOffAnywhereIsSurvived) {
  const std::string sql =
      "Delete T.* From (T Inner Join U As [V w] On T.A=[V w].A) Where T.B In (Select Top (3) 'it''s' From X "
      "Where TRANDT "
      "Between #2024/03/31 14:05:09# And '2024/03/31') And \"C\">=1.5e-7 -- end\n/* e */; Insert Into "
      "STKTRANHD(TRANDT) "
      "Values('2024/03/31')";
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (std::size_t length = 0; length <= sql.size(); ++length) {
    const std::string begin = sql.substr(0, length);
    const std::string end = sql.substr(length);
    EXPECT_GE(dialect.rewrite(begin).size() + 20, begin.size());
    EXPECT_GE(dialect.rewrite(end).size() + 20, end.size());
  }
}

TEST(HostileText, WithANulGoesThroughUntouched) {
  using namespace std::string_view_literals;
  for (const std::string_view sql :
       {"\0"sv, "Delete * From T\0 Where A=1"sv, "Select Top 1 * From T Where A='\0'"sv,
        "Insert Into STKTRANHD(TRANDT) Values('2024/03/31','\0')"sv})
    EXPECT_EQ(rewritten(sql), sql);
}

TEST(HostileText, NestedTooDeeplyGoesThroughUntouched) {
  const std::string deep =
      "Select Top 1 A From T Where " + repeated("(", 5000) + "A=#2024/03/31#" + repeated(")", 5000);
  EXPECT_EQ(rewritten(deep), deep);
  EXPECT_EQ(rewritten("Select Top 1 " + repeated("(", 500) + "A" + repeated(")", 500) + " From T"),
            "Select " + repeated("(", 500) + "A" + repeated(")", 500) + " From T LIMIT 1");
}

TEST(HostileText, OfMuchTextTakesLinearTime) {
  constexpr std::size_t bytes = 400'000;
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (const std::string_view piece : {"(",
                                       ")",
                                       "'",
                                       "''",
                                       "'a",
                                       "[",
                                       "#",
                                       "#2024/03/31 ",
                                       "/*",
                                       "-- \n",
                                       ";",
                                       ",",
                                       "a.",
                                       "=",
                                       "1e",
                                       "\xFF",
                                       "Select ",
                                       "From T,",
                                       "In (",
                                       "Between ",
                                       "And ",
                                       "Union ",
                                       "Delete * From T;",
                                       "TRANDT='2024/03/31' And ",
                                       "Select Top 1 ",
                                       "Select Top 1 A Union ",
                                       "From STKTRANHD H Join ",
                                       "A In (Select TRANDT='2024/03/31' From T) And ",
                                       "Insert Into A(B) Values(#2024/03/31#);"}) {
    for (const std::string_view begin :
         {"", "Select A From T Where ", "Delete T.* From T Join ", "Insert Into T(A) Values("}) {
      const std::string sql = std::string(begin) + repeated(piece, bytes);
      EXPECT_GE(dialect.rewrite(sql).size() * 2, sql.size()) << piece;
    }
  }
  const std::string long_value =
      "Insert Into STKTRANHD(TRANNO,TRANDT) Values('" + repeated("x'' ", 24 * bytes) + "',";
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(dialect.rewrite(long_value + "'2024/03/31')"), long_value + "'2024-03-31 00:00:00')");
}

}  // namespace
}  // namespace tallyra::tests::dialect
