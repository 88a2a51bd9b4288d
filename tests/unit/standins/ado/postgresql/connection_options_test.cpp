#include "standins/ado/postgresql/connection_options.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::standins::ado {
namespace {

PostgresqlOptions options_of(const std::string& more, std::string_view user = {},
                             std::string_view password = {}) {
  return read_postgresql_options(
      read_connection_string("Driver={PostgreSQL Unicode};" + more, user, password, 15));
}

std::string option(const PostgresqlOptions& options, std::string_view keyword) {
  const std::string* const value = options.find(keyword);
  return value ? *value : "none";
}

std::string refusal(const std::string& more) {
  try {
    options_of(more);
    return "taken";
  } catch (const automation::Error& error) {
    return std::string(error.description());
  }
}

bool means(std::string_view text) {
  return means_postgresql(read_connection_string(text, {}, {}, 0));
}

TEST(PostgresqlOptions, AreThoseOfTheDriver) {
  const auto options = options_of(
      "Servername=a,b;Port=5433;Database=stock;UID=me;PWD={se;cret};SSLmode=require;Protocol=7.4-2;"
      "UseServerSidePrepare=1;BoolsAsChar=0;MaxVarcharSize=255;LFConversion=0;"
      "pqopt={target_session_attrs=read-write options='-c lock_timeout=10000' passfile=/x}");
  EXPECT_EQ(option(options, "host"), "a,b");
  EXPECT_EQ(option(options, "port"), "5433");
  EXPECT_EQ(option(options, "dbname"), "stock");
  EXPECT_EQ(option(options, "user"), "me");
  EXPECT_EQ(option(options, "password"), "se;cret");
  EXPECT_EQ(option(options, "sslmode"), "require");
  EXPECT_EQ(option(options, "target_session_attrs"), "read-write");
  EXPECT_EQ(option(options, "passfile"), "/x");
  EXPECT_EQ(option(options, "connect_timeout"), "15");
  EXPECT_EQ(option(options, "client_encoding"), "UTF8");
  EXPECT_EQ(option(options, "options"),
            "-c seq_page_cost=0.1 -c random_page_cost=0.1 -c lock_timeout=10000 -c datestyle=ISO,MDY "
            "-c standard_conforming_strings=on -c extra_float_digits=1 -c bytea_output=hex");
}

TEST(PostgresqlOptions, AUserAndAPasswordBesideTheStringTakeItsPlace) {
  const auto options = options_of("Server=a;Username=x;Password=y", "me", "secret");
  EXPECT_EQ(option(options, "user"), "me");
  EXPECT_EQ(option(options, "password"), "secret");
}

TEST(PostgresqlOptions, OwnLimitsOfTheLoginStay) {
  EXPECT_EQ(option(options_of("pqopt={connect_timeout=3}"), "connect_timeout"), "3");
}

TEST(PostgresqlOptions, CompletedTheyHoldNoPassword) {
  const auto options =
      options_of("Servername=a;UID=me;PWD=one;pqopt={sslpassword=two passfile=/x}", {}, "three");
  EXPECT_EQ(options.completed_string,
            "DRIVER={PostgreSQL Unicode};Servername=a;UID=me;Port=5432;"
            "pqopt={passfile='/x' connect_timeout='15'}");
}

TEST(PostgresqlOptions, WhatIsNotKnownIsRefusedByNameAndWithoutItsValue) {
  EXPECT_EQ(refusal("Sevrername=a"), "The connection string has an unknown keyword: Sevrername");
  EXPECT_EQ(refusal("ConnSettings=secret"), "The connection string has an unknown keyword: ConnSettings");
  EXPECT_EQ(refusal("pqopt={service=secret}"), "pqopt has an option that is not taken: service");
  EXPECT_EQ(refusal("pqopt={sslkey=engine:secret}"), "pqopt has an option that is not taken: sslkey");
  EXPECT_EQ(refusal("pqopt={options='-c local_preload_libraries=x'}"),
            "pqopt has an option that is not taken: options");
  EXPECT_EQ(refusal("pqopt={options='-c Local_PreLoad_Libraries=x'}"),
            "pqopt has an option that is not taken: options");
  EXPECT_EQ(refusal("pqopt={options='-c local_pre\\\\load_libraries=x'}"),
            "pqopt has an option that is not taken: options");
  EXPECT_EQ(refusal("pqopt={password=a secret}"),
            "The connection string has options of the library that make no sense: pqopt");
  EXPECT_EQ(refusal("Servername=a;pqopt={host=secret}"), "The connection string says this twice: host");
  EXPECT_EQ(refusal("CommLog=1"), "The connection string reaches beyond the database: CommLog");
  EXPECT_EQ(refusal("CommLog=0;Debug=0"), "taken");
}

TEST(PostgresqlOptions, AProviderOrADataSourceInTheStringMeansTheDriver) {
  EXPECT_TRUE(means("DRIVER={postgresql unicode};Server=a"));
  EXPECT_TRUE(means("driver=PostgreSQL ANSI"));
  EXPECT_FALSE(means("Provider=MSDASQL;Driver={PostgreSQL Unicode}"));
  EXPECT_FALSE(means("DSN=stock"));
  EXPECT_FALSE(means("Driver={SQLite3};Database=x"));
}

}  // namespace
}  // namespace tallyra::standins::ado
