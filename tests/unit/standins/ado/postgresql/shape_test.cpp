#include "standins/ado/postgresql/shape.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

// The shape, its kinds and values; "as it is" for a text without one.
std::string shape_of(std::string_view sql) {
  Shape shape;
  if (!shape.read(sql)) return "as it is";
  std::string told = shape.text();
  for (std::size_t i = 0; i < shape.kinds().size(); ++i)
    told += std::string(i == 0 ? " | " : " ") + static_cast<char>(shape.kinds()[i]) + ":" + shape.values()[i];
  return told;
}

TEST(Shape, TakesPlainLiteralsOut) {
  struct Row {
    std::string_view sql;
    std::string_view shape;
  };
  const Row rows[] = {
      {"Insert Into T(A,B) Values('it''s',5)", "Insert Into T(A,B) Values($1,$2) | t:it's i:5"},
      {"INSERT INTO T(A,B,C) VALUES ( -5 , 1.5E-02,Null)",
       "INSERT INTO T(A,B,C) VALUES ( $1 , $2,Null) | i:-5 d:1.5E-02"},
      {"Insert Into T Values('')", "Insert Into T Values($1) | t:"},
      {"Select * From T Where T.A='x' And B=2 Order By C",
       "Select * From T Where T.A=$1 And B=$2 Order By C | t:x i:2"},
      {"Select Sum(A) From T Where B='x' And C>'2024-01-31' And C<='2024-02-29'",
       "Select Sum(A) From T Where B=$1 And C>'2024-01-31' And C<='2024-02-29' | t:x"},
      {"Update T Set A='x',B=1.5 Where C<>'y'", "Update T Set A=$1,B=$2 Where C<>$3 | t:x d:1.5 t:y"},
      {"Delete From T Where (A='x' Or A='y') And B=-5",
       "Delete From T Where (A=$1 Or A=$2) And B=$3 | t:x t:y i:-5"},
      {"Select A From T Where A='x' LIMIT 1", "Select A From T Where A=$1 LIMIT 1 | t:x"},
      {"Select \"a'b\" From T Where \"a'b\"='c'", "Select \"a'b\" From T Where \"a'b\"=$1 | t:c"},
      {"Select DEPTNO From DEPARTS", "Select DEPTNO From DEPARTS"},
  };
  for (const Row& row : rows) EXPECT_EQ(shape_of(row.sql), row.shape);
}

TEST(Shape, LeavesLiteralsWhoseBeingLiteralsMayMatter) {
  struct Row {
    std::string_view sql;
    std::string_view shape;
  };
  const Row rows[] = {
      {"Select 'a',5 From T", "Select 'a',5 From T"},
      {"Select A From T Order By 1", "Select A From T Order By 1"},
      {"Select A From T Where B Like 'x%' And C In ('a','b') And D Between 1 And 2",
       "Select A From T Where B Like 'x%' And C In ('a','b') And D Between 1 And 2"},
      {"Select A From T Where A='x'||'y' And B=1+2", "Select A From T Where A='x'||'y' And B=1+2"},
      {"Select A From T Where A=12345678901", "Select A From T Where A=12345678901"},
      {"Insert Into T Values(1+2,'a'||'b')", "Insert Into T Values(1+2,'a'||'b')"},
      {"Insert Into T Values(f('a'))", "Insert Into T Values(f('a'))"},
      {"Update T Set A=A-5", "Update T Set A=A-5"},
  };
  for (const Row& row : rows) EXPECT_EQ(shape_of(row.sql), row.shape);
}

TEST(Shape, HasNoneForWhatIsNotSurelyUnderstood) {
  for (const std::string_view sql :
       {"Select A From T -- x", "Select /* x */ 1", "Select A From T Where A=E'x'", "Select $1",
        "Select A::text From T", "Select A From T Where (A=1", "Select A)", "Select 'open",
        "Select A[1] From T", "Create Table T(A integer)", "Set work_mem='1MB'",
        "Select A,Sum(B) From T Where C='x' Group By A", "Select 1a", "Select 0x1F",
        "Select A From T Where A=1e", "Select A; Select B", "Values(1)", ""})
    EXPECT_EQ(shape_of(sql), "as it is") << sql;
}

TEST(Shape, TextsThatDifferInTheKindOfALiteralDifferInShape) {
  Shape one;
  Shape other;
  ASSERT_TRUE(one.read("Insert Into T Values(1)"));
  ASSERT_TRUE(other.read("Insert Into T Values(2)"));
  EXPECT_EQ(one.key(), other.key());
  ASSERT_TRUE(other.read("Insert Into T Values('1')"));
  EXPECT_NE(one.key(), other.key());
  ASSERT_TRUE(other.read("Insert Into T Values(1.0)"));
  EXPECT_NE(one.key(), other.key());
}

TEST(Shape, TellsWhatCanBeDoneAgain) {
  struct Row {
    std::string_view sql;
    Repeat repeat;
  };
  const Row rows[] = {
      {"Insert Into T(A,B) Values('x',Null)", Repeat::by_its_text},
      {"Insert Into T(A) Values('x'),('y')", Repeat::unknown},
      {"Insert Into T(A) Values(nextval('s'))", Repeat::unknown},
      {"Insert Into T(A) Values(current_user)", Repeat::unknown},
      {"Insert Into T(A) Values('x') Returning A", Repeat::unknown},
      {"Insert Into T(A) Values(1) On Conflict Do Nothing", Repeat::unknown},
      {"Insert Into T(A) Select B From U", Repeat::unknown},
      {"Select A From T Where A='x'", Repeat::nothing},
      {"Select Sum(A) From T Group By B", Repeat::nothing},
      {"Select A From T Where A In ('x') And (B=1 Or B=2)", Repeat::nothing},
      {"Select nextval('s')", Repeat::unknown},
      {"Select \"nextval\"('s')", Repeat::unknown},
      {"Select A From T For Update", Repeat::unknown},
      {"Select A Into U From T", Repeat::unknown},
      {"Update T Set A=1", Repeat::unknown},
      {"Delete From T", Repeat::unknown},
      {"Select A From T -- x", Repeat::unknown},
  };
  for (const Row& row : rows) {
    Shape shape;
    shape.read(row.sql);
    EXPECT_EQ(shape.repeat(), row.repeat) << row.sql;
  }
}

}  // namespace
}  // namespace tallyra::standins::ado
