#include "standins/ado/odbc/odbc_error.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

TEST(ErrorMapping, FollowsTheSqlStateOfDriversThatTellOne) {
  struct Row {
    const char* state;
    std::int32_t number;
  };
  const Row rows[] = {
      {"42601", -2147217900}, {"42000", -2147217900}, {"42P07", -2147217900}, {"42S01", -2147217900},
      {"42P01", -2147217865}, {"42S02", -2147217865}, {"42703", -2147217900}, {"42S22", -2147217900},
      {"23505", -2147217873}, {"23502", -2147217873}, {"23503", -2147217873}, {"23000", -2147217873},
      {"22P02", -2147217913}, {"22007", -2147217913}, {"22018", -2147217913}, {"22003", -2147217833},
      {"22001", -2147217833}, {"22012", -2147217900}, {"07002", -2147217904}, {"28000", -2147217843},
      {"HYT00", -2147217871}, {"42501", -2147217911}, {"40001", -2147467259}, {"55P03", -2147467259},
      {"08001", -2147467259}, {"IM002", -2147467259}, {"01000", -2147467259}, {"HY000", -2147467259},
      {"", -2147467259},
  };
  for (const Row& row : rows)
    EXPECT_EQ(error_number({row.state, 1, "[Maker][Driver]no such table"}), row.number) << row.state;
}

TEST(ErrorMapping, FollowsTheNativeCodeOfTheSqliteDriver) {
  struct Row {
    std::int32_t native;
    const char* message;
    std::int32_t number;
  };
  const Row rows[] = {
      {1, "[SQLite]near \"x\": syntax error (1)", -2147217900},
      {1, "[SQLite]no such table: X (1)", -2147217865},
      {1, "[SQLite]no such column: X (1)", -2147217900},
      {19, "[SQLite]UNIQUE constraint failed: T.A (19)", -2147217873},
      {20, "[SQLite]datatype mismatch (20)", -2147217913},
      {-1, "[SQLite]unbound parameters in query", -2147217904},
      {5, "[SQLite]database is locked (5)", -2147467259},
      {14, "[SQLite]connect failed", -2147467259},
      {26, "[SQLite]file is not a database (26)", -2147467259},
  };
  for (const Row& row : rows)
    EXPECT_EQ(error_number({"HY000", row.native, row.message}), row.number) << row.message;
}

TEST(ErrorMapping, KeepsTheDriversOwnSentence) {
  struct Row {
    std::int32_t native;
    const char* message;
    const char* text;
  };
  const Row rows[] = {
      {1, "[SQLite]no such table: X (1)", "no such table: X"},
      {7, "[SQLite]no such table: X (1)", "no such table: X (1)"},
      {0, "[unixODBC][Driver Manager]Can't open lib 'N' : file not found",
       "Can't open lib 'N' : file not found"},
      {1, "ERROR: relation \"x\" does not exist", "ERROR: relation \"x\" does not exist"},
      {1, "[Maker] [x] is no column", "[x] is no column"},
      {1, "[unclosed", "[unclosed"},
      {1, "", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(error_text({"HY000", row.native, row.message}), row.text);
}

}  // namespace
}  // namespace tallyra::standins::ado
