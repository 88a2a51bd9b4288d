#include "standins/ado/postgresql/postgresql_error.h"

#include <gtest/gtest.h>

#include "standins/ado/ado_error.h"
#include "tests/unit/standins/ado/postgresql/made_result.h"

namespace tallyra::standins::ado {
namespace {

TEST(PostgresqlError, OfAResultWithoutFieldsHasNoStateAndTheCommonNumber) {
  const Result result(PQmakeEmptyPGresult(nullptr, PGRES_FATAL_ERROR));
  EXPECT_EQ(state_of(result.get()), "");
  EXPECT_EQ(postgresql_error(result.get()).number(), provider_error::unspecified);
}

TEST(PostgresqlError, OfAConnectionHasTheWordsOfTheLibraryWithoutTheirLineEnd) {
  PGconn* const connection = PQconnectdb("host=/nowhere/at/all dbname=x");
  const automation::Error error = connection_error(connection);
  EXPECT_EQ(error.number(), provider_error::unspecified);
  EXPECT_NE(error.description().find("/nowhere/at/all"), std::string_view::npos) << error.description();
  EXPECT_NE(error.description().back(), '\n');
  PQfinish(connection);
}

}  // namespace
}  // namespace tallyra::standins::ado
