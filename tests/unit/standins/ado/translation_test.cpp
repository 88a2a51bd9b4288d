#include "standins/ado/translation.h"

#include <gtest/gtest.h>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t denied = -2147217911;
constexpr std::int32_t errors_in_command = -2147217900;
constexpr std::int32_t cannot_convert = -2147217913;

class Translation : public testing::Test {
 protected:
  std::string of(std::string_view sql) { return std::string(translated(dialect_, sql)); }
  std::int32_t error_of_text(std::string_view sql) {
    return error_of([&] { translated(dialect_, sql); });
  }

  tests::dialect::StockColumns columns_;
  dialect::SqliteDialect dialect_{columns_};
};

TEST_F(Translation, IsTheStatementInTheWordsOfTheEngine) {
  EXPECT_EQ(of("Select Top 1 A From T"), "Select A From T LIMIT 1");
  EXPECT_EQ(of("Select A From T"), "Select A From T");
}

TEST_F(Translation, RefusesWhatTheEngineMustNotGet) {
  EXPECT_EQ(error_of_text("Select load_extension('x')"), denied);
  EXPECT_EQ(description_of([&] { of("Attach 'x' As y"); }),
            "The statement reaches beyond the database: Attach");
  EXPECT_EQ(error_of_text("Select 1; Select 2"), errors_in_command);
  EXPECT_EQ(error_of_text("Select 1 From STKTRANHD Where TRANDT='no date'"), cannot_convert);
  EXPECT_EQ(description_of([&] { of("Select 1 From STKTRANHD Where TRANDT='no date'"); }),
            "The text 'no date' cannot be converted to a date");
  EXPECT_EQ(of("Select 1"), "Select 1") << "and goes on afterwards";
}

TEST_F(Translation, RefusesTheSameOfAFormWithItsValuesApart) {
  const auto form = [&](std::string_view sql) {
    std::vector<dialect::Literal> literals;
    std::vector<dialect::LiteralUse> uses;
    translated_form(dialect_, sql, literals, uses);
  };
  EXPECT_EQ(error_of([&] { form("Select load_extension('x')"); }), denied);
  EXPECT_EQ(error_of([&] { form("Select 1; Select 2"); }), errors_in_command);
  EXPECT_EQ(error_of([&] { form("Select 1"); }), 0);
}

TEST_F(Translation, RefusesATextThatAnEngineWouldReadToItsMiddle) {
  EXPECT_EQ(error_of([] { refuse_nul(std::string_view("Delete From T\0 Where A=1", 24)); }),
            errors_in_command);
  EXPECT_EQ(error_of([] { refuse_nul("Delete From T Where A=1"); }), 0);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
