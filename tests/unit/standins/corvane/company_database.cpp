#include "tests/unit/standins/corvane/company_database.h"

#include <fstream>

#include "automation/convert.h"
#include "automation/create.h"
#include "company/schema_script.h"
#include "company/schema_upgrade.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/database.h"
#include "standins/corvane/local_classes.h"

namespace tallyra::standins::corvane::testing {
CompanyDatabase::CompanyDatabase()
    : connection_string_("DRIVER={SQLite3};Database=" + folder_.file("company.db") + ";SyncPragma=OFF") {
  ado::register_classes();
  register_classes();
  { const std::ofstream without_tables(file(), std::ios::app); }
  run(company::read_schema(TALLYRA_SCHEMA));
}

CompanyDatabase::CompanyDatabase(std::unique_ptr<tests::EmptyDatabase> empty)
    : given_(std::move(empty)), connection_string_(given_->connection_string()) {
  register_classes();
  company::upgrade_schema(connection_string_);
}

std::filesystem::path CompanyDatabase::file() const {
  return folder_.file("company.db");
}

std::filesystem::path CompanyDatabase::key_file() const {
  return folder_.file("company.db.keys");
}

automation::Object CompanyDatabase::open() const {
  return open_connection(connection_string_);
}

automation::Object CompanyDatabase::open(const std::string& file) const {
  return open_connection("DRIVER={SQLite3};Database=" + file);
}

void CompanyDatabase::run(const std::vector<std::string>& statements) const {
  const automation::Object connection = open();
  for (const std::string& statement : statements) {
    automation::Value affected;
    connection.call("Execute", statement, automation::ref(affected), -1);
  }
  connection.call("Close");
}

automation::Value CompanyDatabase::value(const std::string& query) const {
  const automation::Object connection = open();
  automation::Value affected;
  const automation::Object rows =
      automation::to_object(connection.call("Execute", query, automation::ref(affected), -1));
  const automation::Object fields = automation::to_object(rows.get("Fields"));
  const automation::Value value = automation::to_object(fields.call("Item", 0)).get("Value");
  rows.call("Close");
  connection.call("Close");
  return value;
}

automation::Object CompanyDatabase::power_check(std::string_view user) const {
  automation::Object object = automation::create("Corvane.CPowerCheck");
  object.put("Language", "EN");
  object.put("ConnectionString", connection_string_);
  object.put("UserID", user);
  object.put("SystemDatabase", "MSSQLSERVER");
  return object;
}

automation::Object CompanyDatabase::system() const {
  automation::Object object = automation::create("Corvane.CSystem");
  object.put("Language", "EN");
  object.put("ConnectionString", connection_string_);
  object.put("UserID", "ANNA");
  object.put("DatabaseName", "MSSQLSERVER");
  return object;
}

}  // namespace tallyra::standins::corvane::testing
