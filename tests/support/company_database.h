#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "tests/support/company_engine.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"

namespace tallyra::behaviour {

// A company's database with the real classes around it: ADO, Lexbank, Corvane. It is empty but for its tables
// and the rights of ADMIN; all that is stored goes with the object.
class CompanyDatabase {
 public:
  // Milliseconds that a statement waits for a lock. The driver waits up to twice as long.
  static constexpr int default_lock_wait = 2000;

  explicit CompanyDatabase(std::string system_database = "MSACCESS", int lock_wait = default_lock_wait);
  ~CompanyDatabase();
  CompanyDatabase(const CompanyDatabase&) = delete;
  CompanyDatabase& operator=(const CompanyDatabase&) = delete;

  // For what only one engine has, such as a file: tests of it are skipped on the other.
  bool is_sqlite() const { return engine_->is_sqlite(); }

  // The order in which rows came, for a query to sort by.
  const char* row_order() const { return is_sqlite() ? "rowid" : "ctid"; }

  // Runs statements in words that every engine takes; dates are 'YYYY-MM-DD HH:MM:SS'.
  void run(const std::vector<std::string>& statements) const;
  // Each class finds one record: under the key X1, in the texts of its address, the serial number 1, the
  // close of 2024/01/31.
  void add_a_record_of_each_class() const;
  // The rows of a query, a line each, columns separated by '|', Null as "NULL".
  std::string rows(const std::string& query) const;
  // From now on rows of the table are refused, as by a key, when they are inserted, updated or deleted
  // (`event`):
  // all of them, or those that meet a condition on NEW or OLD. `allow` ends it.
  void refuse(const std::string& name, const std::string& event, const std::string& table,
              const std::string& condition, const std::string& message) const;
  void allow(const std::string& name, const std::string& table) const;
  // The user has these rights for every function; "CANINSERT,CANUPDATE" or "OWNER".
  void grant(const std::string& user, const std::string& rights) const;

  // A business object of the user on this database.
  automation::Object client(std::string_view class_name, std::string_view user = "ADMIN") const;
  const std::string& connection_string() const { return connection_string_; }
  // Of SQLite.
  std::filesystem::path file() const { return engine_->file(); }
  const std::string& system_database() const { return system_database_; }

 private:
  std::unique_ptr<CompanyEngine> engine_;
  std::string connection_string_;
  std::string system_database_;
};

// Whether an engine's sentence names a table or a column, in whatever case.
bool names(std::string_view sentence, std::string_view name);

}  // namespace tallyra::behaviour
