#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/test_folder.h"

namespace tallyra::behaviour {

// A company's database on SQLite with the real classes around it: ADO, Lexbank, Corvane. It is empty but for
// its tables and the rights of ADMIN; file and side files go with the object.
class CompanyDatabase {
 public:
  // Milliseconds that a statement waits for a lock. The driver waits up to twice as long.
  static constexpr int default_lock_wait = 2000;

  explicit CompanyDatabase(std::string system_database = "MSACCESS", int lock_wait = default_lock_wait);
  ~CompanyDatabase();
  CompanyDatabase(const CompanyDatabase&) = delete;
  CompanyDatabase& operator=(const CompanyDatabase&) = delete;

  // Runs statements in SQLite's own words; dates are 'YYYY-MM-DD HH:MM:SS'.
  void run(const std::vector<std::string>& statements) const;
  // Each class finds one record: under the key X1, in the texts of its address, the serial number 1, the
  // close of 2024/01/31.
  void add_a_record_of_each_class() const;
  // The rows of a query, a line each, columns separated by '|', Null as "NULL".
  std::string rows(const std::string& query) const;
  // The user has these rights for every function; "CANINSERT,CANUPDATE" or "OWNER".
  void grant(const std::string& user, const std::string& rights) const;

  // A business object of the user on this database.
  automation::Object client(std::string_view class_name, std::string_view user = "ADMIN") const;
  const std::string& connection_string() const { return connection_string_; }
  const std::filesystem::path& file() const { return file_; }
  const std::string& system_database() const { return system_database_; }

 private:
  tests::TestFolder folder_;
  std::filesystem::path file_;
  std::string connection_string_;
  std::string system_database_;
};

}  // namespace tallyra::behaviour
