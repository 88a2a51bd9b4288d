// Windows' ODBC interface under Wine reaches the drivers of the machine.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "standins/ado/odbc/odbc_api.h"

namespace {

using tallyra::standins::ado::odbc_number;
using tallyra::standins::ado::odbc_text;

class OdbcUnderWine : public testing::Test {
 protected:
  void SetUp() override {
    // The driver is a library of the machine: it wants the file name without a drive letter.
    database_ = (std::filesystem::current_path() / "odbc_under_wine.db").generic_string().substr(2);
    std::filesystem::remove(database_);
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_), SQL_SUCCESS);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, odbc_number(SQL_OV_ODBC3), 0);
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_), SQL_SUCCESS);
    const std::string source = "DRIVER={SQLite3};Database=" + database_;
    ASSERT_TRUE(SQL_SUCCEEDED(SQLDriverConnect(connection_, nullptr, odbc_text(source.c_str()), SQL_NTS,
                                               nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)))
        << "no connection to " << database_;
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement_), SQL_SUCCESS);
  }

  void TearDown() override {
    if (statement_ != nullptr) SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    if (connection_ != nullptr) {
      SQLDisconnect(connection_);
      SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    }
    if (environment_ != nullptr) SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    std::filesystem::remove(database_);
  }

  SQLRETURN execute(const std::string& sql) {
    return SQLExecDirect(statement_, odbc_text(sql.c_str()), SQL_NTS);
  }

  std::string database_;
  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
  SQLHSTMT statement_ = nullptr;
};

TEST_F(OdbcUnderWine, MakesTheDatabaseAtThePathThatTheMachineUses) {
  ASSERT_EQ(execute("CREATE TABLE PARTS(PARTNM VARCHAR(40))"), SQL_SUCCESS);
  EXPECT_TRUE(std::filesystem::exists(database_));
}

TEST_F(OdbcUnderWine, ReturnsTheUtf8TextThatWasWrittenThroughNarrowFunctions) {
  const std::string name = "Schl\xC3\xBCssel \xE4\xB8\xAD\xE6\x96\x87 \xF0\x9F\x94\x91";
  ASSERT_EQ(execute("CREATE TABLE PARTS(PARTNM VARCHAR(40))"), SQL_SUCCESS);
  ASSERT_EQ(execute("INSERT INTO PARTS VALUES('" + name + "')"), SQL_SUCCESS);
  ASSERT_EQ(execute("SELECT PARTNM FROM PARTS"), SQL_SUCCESS);
  ASSERT_EQ(SQLFetch(statement_), SQL_SUCCESS);
  char buffer[100] = {};
  SQLLEN length = 0;
  ASSERT_EQ(SQLGetData(statement_, 1, SQL_C_CHAR, buffer, sizeof buffer, &length), SQL_SUCCESS);
  EXPECT_EQ(std::string(buffer), name);
  EXPECT_EQ(length, static_cast<SQLLEN>(name.size()));
}

TEST_F(OdbcUnderWine, FindsTheDriverOfTheDatabaseServer) {
  SQLHDBC connection = nullptr;
  ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection), SQL_SUCCESS);
  // Nobody listens there, which the driver alone can tell: the manager's words for one that is missing are
  // others.
  const std::string source =
      "DRIVER={PostgreSQL Unicode};Servername=127.0.0.1;Port=1;Database=none;Username=nobody";
  EXPECT_EQ(SQLDriverConnect(connection, nullptr, odbc_text(source.c_str()), SQL_NTS, nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT),
            SQL_ERROR);
  SQLCHAR state[6] = {};
  SQLCHAR text[512] = {};
  SQLGetDiagRec(SQL_HANDLE_DBC, connection, 1, state, nullptr, text, sizeof text, nullptr);
  EXPECT_STREQ(reinterpret_cast<const char*>(state), "08001") << text;
  SQLFreeHandle(SQL_HANDLE_DBC, connection);
}

}  // namespace
