#include <random>

#include "automation/convert.h"
#include "tests/unit/standins/ado/postgresql/scratch_server.h"

// What is stored by a shape with values is what the text itself would have stored.
namespace tallyra::standins::ado::test {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int statements = 4000;
#else
constexpr int statements = 20000;
#endif

// Inserts of random literals into columns of every type that the tables have, and of some that they have not.
class RandomInserts {
 public:
  std::string next() {
    return "(N,I,F,M,B,V,D) Values(" + std::to_string(++number_) + "," + integer() + "," + number() + "," +
           number() + "," + text() + "," + text() + "," + date() + ")";
  }

 private:
  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }
  std::string sign() { return below(3) == 0 ? "-" : ""; }

  std::string integer() {
    switch (below(8)) {
      case 0: return "Null";
      case 1: return "'" + sign() + std::to_string(below(100000)) + "'";
      case 2: return sign() + std::to_string(below(1000)) + ".5";
      case 3: return sign() + std::to_string(below(2147483648));
      default: return sign() + std::to_string(below(1000000));
    }
  }

  std::string number() {
    const std::string whole = std::to_string(below(1000000));
    switch (below(8)) {
      case 0: return sign() + whole;
      case 1: return sign() + whole + "." + std::to_string(below(1000000000));
      case 2: return sign() + "." + std::to_string(below(1000000000));
      case 3:
        return sign() + std::to_string(below(9) + 1) + "." + std::to_string(below(100000000000000)) + "E-0" +
               std::to_string(below(9));
      case 4: return sign() + "1." + std::to_string(below(100000000000000)) + "E+15";
      case 5: return "'" + sign() + whole + ".25'";
      case 6: return "Null";
      default: return sign() + "0." + std::to_string(below(1000000000000000));
    }
  }

  std::string text() {
    static const char* const parts[] = {"a", "''", " ", "\\", "螺丝", "\"", "$1", "{", "--", "?", "", "5"};
    if (below(12) == 0) return "Null";
    if (below(12) == 0) return std::to_string(below(1000));
    if (below(12) == 0) return "1.50";
    std::string result = "'";
    for (std::uint64_t i = below(6); i > 0; --i) result += parts[below(std::size(parts))];
    return result + "'";
  }

  std::string date() {
    const std::string day = std::to_string(2000 + below(50)) + "/0" + std::to_string(1 + below(9)) + "/" +
                            std::to_string(1 + below(28));
    switch (below(4)) {
      case 0: return "Null";
      case 1: return "#" + day + "#";
      case 2: return "'" + day + " 14:05:09'";
      default: return "'" + day + "'";
    }
  }

  std::mt19937_64 random_{20240307};
  int number_ = 0;
};

std::string columns_of(const std::string& table) {
  return "CREATE TABLE " + table +
         "(N integer, I integer, F double precision, M numeric(20,6), B bpchar COLLATE \"C\" "
         "CHECK(length(B)<=20), V varchar(10) COLLATE \"C\", D timestamp(0))";
}

class StoredValueTest : public ScratchServer {
 protected:
  StoredValueTest() : ScratchServer({columns_of("SHAPED"), columns_of("TEXTS")}) {}
};

// The comment makes a text one that is no shape.
TEST_F(StoredValueTest, IsTheSameByShapeAndByText) {
  const Object connection = open_connection();
  connection.call("BeginTrans");
  RandomInserts inserts;
  int refused = 0;
  for (int i = 0; i < statements; ++i) {
    const std::string values = inserts.next();
    const auto by_shape = error_of([&] { execute(connection, "Insert Into SHAPED" + values); });
    const auto by_text =
        error_of([&] { execute(connection, "Insert Into TEXTS" + values + " -- as it is"); });
    ASSERT_EQ(by_shape, by_text) << values;
    if (by_text != 0) ++refused;
  }
  connection.call("CommitTrans");
  EXPECT_GT(refused, statements / 100);
  EXPECT_LT(refused, statements / 2);
  EXPECT_EQ(scalar(connection, "Select Count(*) From TEXTS"), Value(statements - refused));
  EXPECT_EQ(scalar(connection,
                   "Select Count(*) From (Select t::text From SHAPED t Except All Select t::text "
                   "From TEXTS t) As DIFFERENT"),
            Value(0));
  EXPECT_EQ(scalar(connection, "Select Count(*) From SHAPED"), Value(statements - refused));
}

TEST_F(StoredValueTest, IsWhatTheColumnTakesAfterAChangeOfItsTypeIsTakenBack) {
  const Object connection = open_connection();
  const auto insert_thrice = [&](const std::string& number) {
    for (int i = 0; i < 3; ++i) execute(connection, "Insert Into SHAPED(I) Values(" + number + ")");
  };
  insert_thrice("0.5");
  connection.call("BeginTrans");
  execute(connection, "Alter Table SHAPED Alter I Type double precision");
  insert_thrice("1.5");
  connection.call("RollbackTrans");
  insert_thrice("2.5");
  EXPECT_EQ(remaining(open_recordset(connection, "Select I From SHAPED Order By I"), 0), "1 1 1 3 3 3");
}

TEST_F(StoredValueTest, AComparisonFindsTheSameByShapeAndByText) {
  const Object connection = open_connection();
  for (const char* const row : {"(1,1,0.1,0.1,'a ','a',#2024/03/07#)", "(2,5,0.5,0.5,'a','a ',#2024/03/08#)",
                                "(3,-5,-0.5,100,'5','5','2024/03/09')"})
    execute(connection, "Insert Into TEXTS(N,I,F,M,B,V,D) Values" + std::string(row));
  const char* const conditions[] = {
      "I=5",     "I=5.0", "I=4.5", "I=3000000000", "I='5'",   "I=-5",         "F=0.1",     "F=0.5",
      "F='0.1'", "M=0.1", "M=100", "M>=0.5",       "B='a'",   "B='a  '",      "V='a'",     "V='a '",
      "B=5",     "V=5",   "N=V",   "N='x'",        "D='',",   "D>#2024/3/7#", "F+1=1.5",   "Not I<>5",
      "I<>5",    "I!=5",  "M*2=1", "I/2=2",        "I/2=2.5", "(I+1)=6",      "V='it''s'", "I In (5,6)",
  };
  for (const char* const condition : conditions) {
    const auto found = [&](const char* tail) -> std::string {
      const std::string sql = "Select N From TEXTS Where " + std::string(condition) + tail;
      std::string rows;
      const std::int32_t error = error_of([&] { rows = remaining(open_recordset(connection, sql), 0); });
      return error != 0 ? std::to_string(error) : rows;
    };
    const std::string by_text = found(" -- as it is");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(found(""), by_text) << condition;
  }
}

TEST_F(StoredValueTest, AZeroHasNoSignHoweverOftenItIsStored) {
  const Object connection = open_connection();
  for (const std::string zero : {"-0.0", "-0"})
    for (int i = 0; i < 3; ++i) {
      execute(connection, "Insert Into SHAPED(N,F) Values(1," + zero + ")");
      execute(connection, "Update SHAPED Set F=" + zero + " Where N=" + std::to_string(i));
    }
  EXPECT_EQ(scalar(connection, "Select Count(*) From SHAPED Where F::text='0'"), Value(6));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
