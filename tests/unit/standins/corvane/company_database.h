#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "automation/value.h"
#include "tests/support/empty_database.h"
#include "tests/support/test_folder.h"

namespace tallyra::standins::corvane::testing {

// A company's database, empty but for its tables, which goes with the object: an SQLite file of its own and
// the key file beside it, or a given database of any engine. Registers the classes of this library and of
// ADO.
class CompanyDatabase {
 public:
  CompanyDatabase();
  explicit CompanyDatabase(std::unique_ptr<tests::EmptyDatabase> empty);
  CompanyDatabase(const CompanyDatabase&) = delete;
  CompanyDatabase& operator=(const CompanyDatabase&) = delete;

  const std::string& connection_string() const { return connection_string_; }
  // Of the SQLite file alone.
  std::filesystem::path file() const;
  std::filesystem::path key_file() const;

  // An open connection, as a business method has one.
  automation::Object open() const;
  // An open connection to another file.
  automation::Object open(const std::string& file) const;
  // Runs statements on a connection of their own.
  void run(const std::vector<std::string>& statements) const;
  // The one value that a query gives.
  automation::Value value(const std::string& query) const;

  // A new Corvane.CPowerCheck or Corvane.CSystem with the session of this database.
  automation::Object power_check(std::string_view user = "") const;
  automation::Object system() const;

 private:
  tests::TestFolder folder_;
  std::unique_ptr<tests::EmptyDatabase> given_;
  std::string connection_string_;
};

}  // namespace tallyra::standins::corvane::testing
