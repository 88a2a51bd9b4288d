#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tallyra::behaviour {

// Where the company of a test lies: an SQLite file, or, when the environment has
// TALLYRA_TEST_ENGINE=postgresql, a database of the test program's own server. The tests are the same.
class CompanyEngine {
 public:
  CompanyEngine() = default;
  CompanyEngine(const CompanyEngine&) = delete;
  CompanyEngine& operator=(const CompanyEngine&) = delete;
  virtual ~CompanyEngine() = default;

  // As the environment says, with the tables of a company or still without. `lock_wait` in milliseconds.
  static std::unique_ptr<CompanyEngine> create(int lock_wait);

  virtual bool is_sqlite() const = 0;
  virtual std::string connection_string() const = 0;
  // Statements that make the tables; none when they are there.
  virtual std::vector<std::string> schema() const = 0;
  // Empty when there is none.
  virtual std::filesystem::path file() const = 0;
  // Makes the trigger that refuses rows: see CompanyDatabase::refuse.
  virtual void make_trigger(const std::string& name, const std::string& event, const std::string& table,
                            const std::string& condition, const std::string& message) const = 0;
};

// Of the program's server, or of those that `companies_on` said; not for Windows.
std::unique_ptr<CompanyEngine> company_on_server(int lock_wait);

}  // namespace tallyra::behaviour

namespace tallyra::tests {
class PostgresqlServer;
}

namespace tallyra::behaviour {

// From now on companies are made on a server of the test's own, and look for it there and, when it is gone,
// at its standby; null pointers end that. Neither is owned.
void companies_on(tests::PostgresqlServer* server, tests::PostgresqlServer* standby);

}  // namespace tallyra::behaviour
