#include "standins/ado/dialect/misread_text.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/cut_text.h"

// Where SQLite and its driver see another text than the tokens show.
namespace tallyra::tests::dialect {
namespace {

std::string misread(std::string_view sql) {
  return std::string(standins::ado::dialect::misread_part(cut(sql)));
}

TEST(MisreadText, IsToldByThePartThatIsReadOtherwise) {
  const struct {
    std::string_view sql;
    std::string_view cause;
  } rows[] = {
      {"Select {fn now()}", "{"},
      {"Select { d '2024-03-31' }", "{"},
      {"Select /* { */ 1", "{"},
      {"Select [a{b]", "{"},
      {"Select /* ' */ 'a{b'", "{"},
      {"Select [it's] From T Where A='{'", "{"},
      {"Select 1 Where A=$a(') Or 1 --')", "$a("},
      {"Select 1 Where A=@a::b(')", "@a::b("},
      {"Select :a(", ":a("},
      {"Select #a(", "#a("},
      {"Select x$y(", "$y("},
      {"Select \v 1", "\v"},
      {"\xEF\xBB\xBF"
       "Attach 'x' As y",
       "\xEF\xBB\xBF"
       "Attach"},
  };
  for (const auto& [sql, cause] : rows) EXPECT_EQ(misread(sql), cause) << sql;
}

TEST(MisreadText, IsNoneWhereEveryoneReadsTheSame) {
  for (const std::string_view sql :
       {"", "Select 'it''s {fn x}'", "Select \"a{b}\" From T", "Select :a, @b, #c", "Select 1 Where A=$x",
        "Select '$x(' || A", "Select 'a\v'", "Select f(A) From T"})
    EXPECT_EQ(misread(sql), "") << sql;
}

}  // namespace
}  // namespace tallyra::tests::dialect
