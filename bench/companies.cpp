#include "bench/companies.h"

#include "bench/measured_run.h"
#include "bench/month_close.h"
#include "bench/sqlite_database.h"
#include "company/generator.h"

namespace tallyra::bench {
namespace {

namespace fs = std::filesystem;

std::string connection_string_of(const fs::path& database) {
  return "DRIVER={SQLite3};Database=" + database.string();
}

// Without anything that has a meaning in a connection string.
std::string file_name(const CompanySize& size) {
  return std::to_string(size.departments) + "-" + std::to_string(size.parts) + "-" +
         std::to_string(size.lines);
}

class SqliteCompany : public Company {
 public:
  SqliteCompany(fs::path original, fs::path work) : original_(std::move(original)), work_(std::move(work)) {}

  std::string connection_string() const override { return connection_string_of(work_); }

  void renew() override {
    for (const char* side : {"", "-wal", "-shm", ".keys", ".keys-wal", ".keys-shm", ".keys-journal"})
      fs::remove(work_.string() + side);
    fs::copy_file(original_, work_);
  }

 private:
  fs::path original_;
  fs::path work_;
};

// Brings everything into the file itself, so that it can be copied alone.
void settle(const fs::path& database) {
  SqliteDatabase(database).execute("PRAGMA wal_checkpoint(TRUNCATE)");
}

void generate(const CompanySize& size, const std::string& schema, const fs::path& database) {
  company::Options options;
  options.database = database;
  options.schema = schema;
  options.departments = size.departments;
  options.parts = size.parts;
  options.lines = size.lines;
  options.months = 2;
  company::generate(options, [](int) {});
  close_first_month(connection_string_of(database));
  settle(database);
}

void change(const fs::path& database, const std::vector<std::string>& statements) {
  SqliteDatabase changed(database);
  changed.execute("BEGIN");
  for (const std::string& statement : statements) changed.execute(statement.c_str());
  changed.execute("COMMIT");
  settle(database);
}

// In a process of its own, so that what it needs of memory is not found in those that are measured.
void apart(const std::function<void()>& work) {
  measured_run([&] {
    work();
    return 0;
  });
}

}  // namespace

std::string text_of(const CompanySize& size) {
  return with_commas(size.departments) + " x " + with_commas(size.parts) + " x " + with_commas(size.lines);
}

Companies::Companies(std::string folder, std::string schema)
    : folder_(std::move(folder)), schema_(std::move(schema)) {}

fs::path Companies::original(const CompanySize& size) {
  fs::path database = folder_ / (file_name(size) + ".db");
  if (made_.insert(database).second) apart([&] { generate(size, schema_, database); });
  return database;
}

std::unique_ptr<Company> Companies::company(const CompanySize& size) {
  return copies_of(original(size));
}

std::unique_ptr<Company> Companies::changed(const CompanySize& size, const std::string& name,
                                            const std::vector<std::string>& statements) {
  const fs::path database = folder_ / (file_name(size) + "-" + name + ".db");
  if (made_.insert(database).second) {
    fs::copy_file(original(size), database);
    apart([&] { change(database, statements); });
  }
  return copies_of(database);
}

std::unique_ptr<Company> Companies::copies_of(const fs::path& original) const {
  return std::make_unique<SqliteCompany>(original, folder_ / "work.db");
}

}  // namespace tallyra::bench
