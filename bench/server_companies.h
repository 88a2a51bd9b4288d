#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "bench/companies.h"
#include "tests/support/postgresql_server.h"

namespace tallyra::bench {

// The companies of SQLite files, copied to a database server of the benchmark's own. It is started in the
// folder when the first company is asked for, and goes with the object.
class ServerCompanies {
 public:
  // The companies must outlive the object.
  ServerCompanies(Companies& companies, std::string folder);

  // Whether this machine has the server's programs.
  static bool can_be_made();

  // One at a time: they share the database that is worked on. Must not outlive this object.
  std::unique_ptr<Company> company(const CompanySize& size);

 private:
  tests::PostgresqlServer& server();
  const std::string& original(const CompanySize& size);

  Companies& companies_;
  std::string folder_;
  std::unique_ptr<tests::PostgresqlServer> server_;
  std::map<std::filesystem::path, std::string> made_;  // file, database
};

}  // namespace tallyra::bench
