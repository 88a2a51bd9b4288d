#pragma once

#include <string>

#include "company/database.h"
#include "company/generator.h"
#include "company/schema_script.h"
#include "tests/support/test_folder.h"

namespace tallyra::tests::generated_company {

namespace company = tallyra::company;

// A folder of its own for the databases of one test, removed with everything in it.
class CompanyFolder {
 public:
  std::string file(const std::string& name) const { return folder_.file(name); }

  // Creates an empty database from the create script; returns its path.
  std::string empty_database() const {
    const std::string path = file("empty.db");
    company::Database database(path);
    database.execute("PRAGMA synchronous=OFF");
    for (const std::string& statement : company::read_schema(SQLITE_SCHEMA)) database.execute(statement);
    return path;
  }

  company::Options options(const std::string& name, int parts = 60, int lines = 1200) const {
    company::Options chosen;
    chosen.database = file(name);
    chosen.schema = SQLITE_SCHEMA;
    chosen.parts = parts;
    chosen.lines = lines;
    return chosen;
  }

  // Generates a small company; returns its path.
  std::string company_database(const std::string& name = "company.db") const {
    const company::Options chosen = options(name);
    company::generate(chosen, [](int) {});
    return chosen.database;
  }

 private:
  TestFolder folder_;
};

// The one value of a query as text.
inline std::string value_of(company::Database& database, const std::string& sql) {
  const auto rows = database.query(sql);
  return rows.empty() ? "no row" : rows.front().front();
}

}  // namespace tallyra::tests::generated_company
