#include "standins/ado/odbc/odbc_environment.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

TEST(OdbcEnvironment, SpeaksTheThirdVersion) {
  const auto environment = make_odbc_environment();
  SQLINTEGER version = 0;
  ASSERT_TRUE(SQL_SUCCEEDED(SQLGetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, &version, 0, nullptr)));
  EXPECT_EQ(version, static_cast<SQLINTEGER>(SQL_OV_ODBC3));
}

TEST(OdbcEnvironment, EachIsAnotherAndOutlivesTheOthers) {
  const auto lasting = make_odbc_environment();
  {
    const auto passing = make_odbc_environment();
    EXPECT_NE(passing.get(), lasting.get());
  }
  EXPECT_NO_THROW(OdbcHandle<SQL_HANDLE_DBC>(SQL_HANDLE_ENV, lasting.get()));
}

}  // namespace
}  // namespace tallyra::standins::ado
