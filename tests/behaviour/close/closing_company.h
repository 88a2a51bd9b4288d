#pragma once

#include "automation/clock.h"
#include "tests/support/company_database.h"

namespace tallyra::behaviour {

// A company with three departments and a few movements in January and February 2024, small enough to do its
// closes by hand. Parts differ in price and material type, in case, in hyphens and beyond ASCII.
class ClosingCompany : public CompanyDatabase {
 public:
  explicit ClosingCompany(const std::string& system_database = "MSACCESS", int lock_wait = default_lock_wait);

  stage::Outcome close(const char* date, const char* user = "ADMIN") const;
  stage::Outcome approve(const char* date) const;
  stage::Outcome remove(const char* date) const;

  // Lines of the department documents and of the company document of a day, without their numbers.
  std::string department_lines(const std::string& day) const;
  std::string company_lines(const std::string& day) const;
  // All documents, all lines and all close records, with everything in them.
  std::string everything() const;

 private:
  automation::ScopedClock clock_{[] { return *automation::parse_date("2024/03/05 09:30:00"); }};
};

}  // namespace tallyra::behaviour
