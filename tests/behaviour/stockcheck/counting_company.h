#pragma once

#include <optional>
#include <string>

#include "automation/clock.h"
#include "tests/support/company_database.h"

namespace tallyra::behaviour {

// A company with two departments and parts P1 to P6 that takes stock. Nothing has moved yet. Days are
// "YYYY-MM-DD" and may have a time of day behind them. It is 14:05:09 on 5 April 2024.
class CountingCompany : public CompanyDatabase {
 public:
  explicit CountingCompany(const std::string& system_database = "MSACCESS");

  // A document with one line; quantities as SQL has them, so that "NULL" is none.
  void moves(const std::string& number, const std::string& type, const std::string& day,
             const std::string& from, const std::string& to, const std::string& part,
             const std::string& quantity, int status = 1) const;
  // A record of a month close, without its documents.
  void closed(const std::string& day) const;
  // A header, and a line of one.
  void check(const std::string& number, const std::string& day, const std::string& department) const;
  void counted(const std::string& number, const std::string& part, const std::string& quantity,
               const std::string& price = "1.5") const;

  stage::Outcome update(const char* number, const char* tag, const char* user = "ADMIN") const;
  stage::Outcome approve(const char* number) const { return update(number, "APPROVED"); }

  // Part, quantity and price of the lines that approvals have posted, in their order.
  std::string posted_lines() const;
  // How many headers and lines of approvals there are: "1|2".
  std::string postings() const;
  // The checks, their lines and all documents, with everything in them.
  std::string everything() const;

 private:
  automation::ScopedClock clock_{[] { return *automation::parse_date("2024/04/05 14:05:09"); }};
};

// The approval of a stocktaking with lines stores everything and reports that the second commit found no
// transaction.
void expect_posted(const stage::Outcome& outcome);

}  // namespace tallyra::behaviour
