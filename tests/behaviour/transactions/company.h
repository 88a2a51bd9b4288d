#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/company_database.h"
#include "tests/support/document_methods.h"

// The transaction classes at work on a company's database: rows before, call, rows after.
namespace tallyra::transactions_test {

// ANNA may do everything by right; OWEN and OLGA may do what owners may.
class Company : public testing::TestWithParam<const char*> {
 protected:
  Company() {
    database_.grant("ANNA", "CANINSERT,CANUPDATE,CANDELETE,CANAPPROVED,CANUNAPPROVED,CANCANCEL,CANFINISHED");
    database_.grant("OWEN", "OWNER");
    database_.grant("OLGA", "OWNER");
  }

  Object head(std::string_view user = "ANNA") const { return database_.client("CTranHead", user); }
  Object detail(std::string_view user = "ANNA") const { return database_.client("CTranDetail", user); }

  void given(const std::vector<std::string>& statements) const { database_.run(statements); }
  std::string rows(const std::string& query) const { return database_.rows(query); }
  bool is_sqlite() const { return database_.is_sqlite(); }
  void refuse(const char* event, const char* table, const char* condition, const char* message) const {
    database_.refuse("REFUSED", event, table, condition, message);
  }
  // TRANNO, SN, PARTNO and QTY of all lines in the order of document and number.
  std::string lines() const {
    return rows("Select TRANNO,SN,PARTNO,QTY From STKTRANDT Order By TRANNO,SN,PARTNO");
  }

 private:
  behaviour::CompanyDatabase database_{GetParam()};
};

// The outcome of a failure whose text is the library's or the engine's: there has to be one.
struct Failure {
  double number;
  friend bool operator==(const Outcome& outcome, const Failure& failure) {
    return outcome.result == 0 && outcome.number == stage::narrowed(failure.number) &&
           !outcome.description.empty();
  }
  friend std::ostream& operator<<(std::ostream& out, const Failure& failure) {
    return out << "0 / " << std::fixed << failure.number << " / some text";
  }
};

inline constexpr Failure fields_do_not_match{10000002};
inline constexpr Failure already_exists{10000004};
inline constexpr Failure no_right{10000016};
inline constexpr Failure no_requirement{10000024};
inline constexpr Failure never_received{10000115};
// What a statement that the engine cannot read comes back with.
inline constexpr Failure syntax_error{-2147217900};

#define TALLYRA_ON_BOTH_KINDS(fixture)                                                 \
  INSTANTIATE_TEST_SUITE_P(Kinds, fixture, testing::Values("MSACCESS", "MSSQLSERVER"), \
                           [](const auto& param) { return std::string(param.param); })

}  // namespace tallyra::transactions_test
