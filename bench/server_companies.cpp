#include "bench/server_companies.h"

#include "bench/measured_run.h"
#include "company/database_copy.h"

namespace tallyra::bench {
namespace {

using tests::PostgresqlServer;

constexpr const char* work_database = "work";

// What the server does by itself must not fall into one run and not into another. In memory its log is kept
// short.
constexpr const char* steadiness[] = {"ALTER SYSTEM SET autovacuum=off",
                                      "ALTER SYSTEM SET max_wal_size='128MB'", "SELECT pg_reload_conf()"};

class CompanyOnServer : public Company {
 public:
  CompanyOnServer(const PostgresqlServer& server, std::string original)
      : server_(server), original_(std::move(original)) {}

  std::string connection_string() const override { return server_.connection_string(work_database); }

  void renew() override {
    server_.administer("postgres", std::string("DROP DATABASE IF EXISTS ") + work_database + " WITH (FORCE)");
    server_.administer("postgres", std::string("CREATE DATABASE ") + work_database +
                                       " OWNER tallyra STRATEGY FILE_COPY TEMPLATE " + original_);
  }

 private:
  const PostgresqlServer& server_;
  std::string original_;
};

// In a process of its own, so that what it needs of memory is not found in those that are measured.
void copy(const std::filesystem::path& file, const std::string& connection_string) {
  measured_run([&] {
    company::copy_database(file.string(), connection_string, [](auto...) {});
    return 0;
  });
}

}  // namespace

ServerCompanies::ServerCompanies(Companies& companies, std::string folder)
    : companies_(companies), folder_(std::move(folder)) {}

bool ServerCompanies::can_be_made() {
  return PostgresqlServer::is_installed();
}

std::unique_ptr<Company> ServerCompanies::company(const CompanySize& size) {
  const std::string& copied = original(size);
  return std::make_unique<CompanyOnServer>(server(), copied);
}

PostgresqlServer& ServerCompanies::server() {
  if (server_) return *server_;
  server_ = std::make_unique<PostgresqlServer>(folder_);
  for (const char* const setting : steadiness) server_->administer("postgres", setting);
  return *server_;
}

// Vacuumed, as a server's tables are some time after their rows have come.
const std::string& ServerCompanies::original(const CompanySize& size) {
  const std::filesystem::path file = companies_.original(size);
  const auto found = made_.find(file);
  if (found != made_.end()) return found->second;
  const std::string database = server().new_database();
  copy(file, server().connection_string(database));
  server().administer(database, "VACUUM ANALYZE");
  return made_.emplace(file, database).first->second;
}

}  // namespace tallyra::bench
