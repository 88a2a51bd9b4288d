#include "standins/ado/error_numbers.h"

#include <gtest/gtest.h>

#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

TEST(ErrorNumbers, AWholeStateGoesBeforeItsClass) {
  EXPECT_EQ(error_number_of_state("42000"), provider_error::errors_in_command);
  EXPECT_EQ(error_number_of_state("42S02"), provider_error::no_such_table);
  EXPECT_EQ(error_number_of_state("42501"), provider_error::permission_denied);
  EXPECT_EQ(error_number_of_state("22003"), provider_error::overflow);
  EXPECT_EQ(error_number_of_state("23505"), provider_error::integrity_violation);
  EXPECT_EQ(error_number_of_state("57014"), provider_error::timeout);
}

TEST(ErrorNumbers, AnUnknownStateIsAnUnspecifiedError) {
  for (const std::string_view state : {"", "4", "HY000", "22", "00000", "57000"})
    EXPECT_EQ(error_number_of_state(state), provider_error::unspecified) << state;
}

TEST(ErrorNumbers, OfSqliteFollowTheCodeAndWhereItIsVagueTheWords) {
  EXPECT_EQ(error_number_of_sqlite(1, "no such table: X"), provider_error::no_such_table);
  EXPECT_EQ(error_number_of_sqlite(1, "near \"x\": syntax error"), provider_error::errors_in_command);
  EXPECT_EQ(error_number_of_sqlite(19, "no such table: X"), provider_error::integrity_violation);
  EXPECT_EQ(error_number_of_sqlite(20, ""), provider_error::cannot_convert);
  EXPECT_EQ(error_number_of_sqlite(-1, "unbound parameters in query"), provider_error::parameter_missing);
  EXPECT_EQ(error_number_of_sqlite(-1, "only one SQL statement allowed"), provider_error::errors_in_command);
  EXPECT_EQ(error_number_of_sqlite(5, "database is locked"), provider_error::unspecified);
}

}  // namespace
}  // namespace tallyra::standins::ado
