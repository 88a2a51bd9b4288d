#include "standins/ado/sqlite/literal_binder.h"

#include <sqlite3.h>

#include <array>
#include <cstring>
#include <memory>
#include <random>

#include "tests/unit/standins/ado/scratch_database.h"

// Texts that share a compiled statement store what each of them by itself would have stored: value and
// storage class.
namespace tallyra::standins::ado::test {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int most_texts = 20'000;
#else
constexpr int most_texts = 100'000;
#endif

constexpr const char* table =
    "create table T(K integer primary key, I integer, D double, N numeric(10,2), V varchar(20), B, M "
    "decimal(12,4), "
    "X text, S timestamp)";
constexpr const char* columns = "K,I,D,N,V,B,M,X,S";

struct Closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};

// The library with nothing in front of it.
class PlainSqlite {
 public:
  explicit PlainSqlite(const std::string& path) {
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &opened), SQLITE_OK);
    database_.reset(opened);
  }
  bool run(const std::string& sql) const {
    return sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  // Every value of the table with its storage class, doubles by their bits.
  std::vector<std::string> stored() const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_.get(), "select * from T order by rowid", -1, &statement, nullptr);
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      std::string& row = rows.emplace_back();
      for (int i = 0; i < sqlite3_column_count(statement); ++i) append(row, statement, i);
    }
    sqlite3_finalize(statement);
    return rows;
  }

 private:
  static void append(std::string& row, sqlite3_stmt* statement, int i) {
    const int type = sqlite3_column_type(statement, i);
    row += std::to_string(type) + ':';
    if (type == SQLITE_FLOAT) {
      const double number = sqlite3_column_double(statement, i);
      std::uint64_t bits = 0;
      std::memcpy(&bits, &number, sizeof bits);
      row += std::to_string(bits);
    } else if (type != SQLITE_NULL) {
      row.append(static_cast<const char*>(sqlite3_column_blob(statement, i)),
                 static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
    }
    row += '|';
  }

  std::unique_ptr<sqlite3, Closer> database_;
};

class Values {
 public:
  std::string any() {
    switch (random_() % 12) {
      case 0: return pick({"Null", "NULL", "null"});
      case 1: return whole(6);
      case 2: return whole(20);
      case 3: return '-' + whole(18);
      case 4: return real(15);
      case 5: return '-' + real(15);
      case 6: return real(8);
      case 7: return whole(3) + '.' + whole(14) + pick({"e5", "E-7", "e+12", "e-300", "e300", "e400", ""});
      case 8: return text();
      case 9:
        return '\'' + pick({"12", "1.50", "007", " 5", "1e3", "0x10", "-0", "9223372036854775808"}) + '\'';
      case 10:
        return pick({"''",
                     "''''",
                     "'it''s'",
                     "0",
                     "-0",
                     "-0.0",
                     "0.0",
                     ".5",
                     "5.",
                     "00.10",
                     "007",
                     "0x1F",
                     "9223372036854775807",
                     "-9223372036854775808",
                     "9223372036854775808",
                     "x'41'",
                     "1+1",
                     "abs(-3)",
                     "-(-5)",
                     "+7",
                     "- 7",
                     "1e999",
                     "'a'||'b'",
                     "'\xC3\xA4'",
                     "current_date is null"});
      default: return real(17);
    }
  }
  std::string date() {
    if (random_() % 4 == 0) return pick({"Null", "''"});
    return "'2024-" + pick({"01", "02", "11"}) + '-' + pick({"01", "17", "28"}) + ' ' +
           pick({"00:00:00", "13:05:09"}) + '\'';
  }

 private:
  std::string pick(std::initializer_list<const char*> choices) {
    return choices.begin()[random_() % choices.size()];
  }
  std::string whole(int digits) {
    std::string text(1, static_cast<char>('1' + random_() % 9));
    for (auto i = 1U; i < 1 + random_() % static_cast<unsigned>(digits); ++i)
      text += static_cast<char>('0' + random_() % 10);
    return text;
  }
  // With so many digits before and behind its point.
  std::string real(int digits) {
    std::string number = whole(digits);
    while (number.size() < static_cast<std::size_t>(digits))
      number += static_cast<char>('0' + random_() % 10);
    return number.insert(random_() % number.size(), ".");
  }
  std::string text() {
    std::string result = "'";
    for (auto i = random_() % 30; i > 0; --i) {
      const char c = static_cast<char>(' ' + random_() % 95);
      result.append(c == '\'' ? 2 : 1, c);
    }
    return result + '\'';
  }

  std::mt19937 random_{20240331};
};

class LiteralBinderStorageTest : public ScratchDatabase {
 protected:
  LiteralBinderStorageTest() {
    make_database("text.db");
    for (const PlainSqlite* const database : {&by_form, &by_text}) {
      database->run("pragma synchronous=off");
      EXPECT_TRUE(database->run(table));
    }
    connection = open_connection();
  }

  // Whether both take the text, and neither when one refuses it.
  void run(const std::string& sql) const {
    const bool taken = by_text.run(sql);
    EXPECT_EQ(error_of([&] { execute(connection, sql); }) == 0, taken) << sql;
  }

  void expect_same_rows() const {
    const auto mine = by_form.stored();
    const auto theirs = by_text.stored();
    ASSERT_EQ(mine.size(), theirs.size());
    int differing = 0;
    for (std::size_t i = 0; i < mine.size(); ++i)
      if (mine[i] != theirs[i] && ++differing < 10) ADD_FAILURE() << mine[i] << "\n" << theirs[i];
    EXPECT_EQ(differing, 0);
  }

  PlainSqlite by_form{path("test.db")};
  PlainSqlite by_text{path("text.db")};
  Object connection;
};

TEST_F(LiteralBinderStorageTest, OfInsertedTextsIsThatOfTheTexts) {
  Values values;
  connection.call("BeginTrans");
  by_text.run("begin");
  for (int i = 0; i < most_texts; ++i) {
    std::string list = i % 7 == 0 ? "Null" : std::to_string(i * 2);
    for (int column = 0; column < 7; ++column) list += ',' + values.any();
    const std::string date = values.date();
    const std::string head = "Insert Into T (" + std::string(columns) + ") Values (" + list + ',';
    by_text.run(head + (date == "''" ? "'1900-01-01 00:00:00'" : date) + ')');
    execute(connection, head + date + ')');
  }
  connection.call("CommitTrans");
  by_text.run("commit");
  expect_same_rows();
}

TEST_F(LiteralBinderStorageTest, OfUpdatedRowsIsThatOfTheTexts) {
  Values values;
  connection.call("BeginTrans");
  by_text.run("begin");
  for (int i = 0; i < 50; ++i)
    run("insert into T(K,V) values(" + std::to_string(i) + ",'k" + std::to_string(i % 9) + "')");
  for (int i = 0; i < most_texts / 10; ++i) {
    const std::string set = "I=" + values.any() + ", D = " + values.any() + ",N=" + values.any() +
                            ",B=" + values.any() + ",X=" + values.any();
    run("Update T Set " + set + " Where K=" + std::to_string(i % 60) + " And V>='k" + std::to_string(i % 9) +
        "'");
    run("Update T Set M=" + values.any() + " Where V='k" + std::to_string(i % 11) + "' And (B<" +
        values.any() + ")");
  }
  connection.call("CommitTrans");
  by_text.run("commit");
  expect_same_rows();
}

TEST_F(LiteralBinderStorageTest, OfALongTextIsTheWholeText) {
  for (const std::size_t size : {100U, 5'000U, 70'000U, 2'000'000U})
    run("insert into T(X) values('" + std::string(size, 'x') + "''" + std::string(size, 'y') + "')");
  expect_same_rows();
}

}  // namespace
}  // namespace tallyra::standins::ado::test
