#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "automation/clock.h"
#include "tests/support/company_database.h"

namespace tallyra::memory {

// A call of a writing method that changes the database of a StockedCompany.
struct Deed {
  const char* name;
  const char* class_name;
  stage::Fields fields;
  std::function<automation::Value(const automation::Object&, stage::Fields&)> call;
  // What the client sees of it when nothing is in the way.
  stage::Outcome undisturbed = stage::done;
  // Whether it commits more than once: what it has committed before an error stays.
  bool commits_step_by_step = false;
  // Whether it tells why it got no document number in the words of whoever issues them.
  bool asks_for_numbers = false;
};

// One of each kind of writing.
std::vector<Deed> deeds();

// A company with something for every deed, and a copy of its files to go back to.
class StockedCompany : public behaviour::CompanyDatabase {
 public:
  StockedCompany();
  ~StockedCompany();

  void go_back() const;
  // Every table that a deed writes, without the numbers that are issued anew each time.
  std::string content() const;

 private:
  std::filesystem::path folder() const { return file().parent_path(); }
  std::filesystem::path kept() const { return folder().string() + "-kept"; }

  automation::ScopedClock clock_{[] { return *automation::parse_date("2024/04/05 14:05:09"); }};
};

}  // namespace tallyra::memory
