#pragma once

#include <optional>
#include <string>

#include "standins/ado/odbc/odbc_environment.h"
#include "standins/ado/odbc/odbc_handle.h"

namespace tallyra::standins::ado::test {

// The driver without anything before it: shows what a statement would have done.
class PlainOdbc {
 public:
  explicit PlainOdbc(const std::string& odbc_string)
      : environment_(make_odbc_environment()), login_(SQL_HANDLE_ENV, environment_.get()) {
    login_.require(SQLDriverConnect(login_.get(), nullptr, odbc_text(odbc_string.c_str()), SQL_NTS, nullptr,
                                    0, nullptr, SQL_DRIVER_NOPROMPT));
  }
  ~PlainOdbc() { SQLDisconnect(login_.get()); }
  PlainOdbc(const PlainOdbc&) = delete;
  PlainOdbc& operator=(const PlainOdbc&) = delete;

  SQLHDBC connection() const { return login_.get(); }

  // Whether the driver took the statement; its rows are read and forgotten.
  bool run(const std::string& sql) const {
    const OdbcHandle<SQL_HANDLE_STMT> statement(SQL_HANDLE_DBC, login_.get());
    if (!SQL_SUCCEEDED(
            SQLExecDirect(statement.get(), odbc_text(sql.data()), static_cast<SQLINTEGER>(sql.size()))))
      return false;
    while (SQL_SUCCEEDED(SQLFetch(statement.get()))) {
    }
    return true;
  }

 private:
  OdbcHandle<SQL_HANDLE_ENV> environment_;
  OdbcHandle<SQL_HANDLE_DBC> login_;
};

}  // namespace tallyra::standins::ado::test
