#include "tests/support/company_engine.h"

#include <cstdlib>
#include <fstream>
#include <string_view>

#include "automation/create.h"
#include "automation/object.h"
#include "company/schema_script.h"
#include "tests/support/test_folder.h"

namespace tallyra::behaviour {
namespace {

class CompanyFile : public CompanyEngine {
 public:
  explicit CompanyFile(int lock_wait) : file_(folder_.file("company.db")), lock_wait_(lock_wait) {
    std::ofstream(file_, std::ios::app);  // a database without tables
  }

  bool is_sqlite() const override { return true; }

  // What a test writes need not survive a power cut.
  std::string connection_string() const override {
    return "DRIVER={SQLite3};Database=" + file_.generic_string() +
           ";SyncPragma=OFF;Timeout=" + std::to_string(lock_wait_);
  }

  std::vector<std::string> schema() const override { return company::read_schema(TALLYRA_SCHEMA); }
  std::filesystem::path file() const override { return file_; }

  void make_trigger(const std::string& name, const std::string& event, const std::string& table,
                    const std::string& condition, const std::string& message) const override {
    const automation::Object connection = automation::create("ADODB.Connection");
    connection.call("Open", connection_string());
    connection.call("Execute", "CREATE TRIGGER " + name + " BEFORE " + event + " ON " + table +
                                   (condition.empty() ? "" : " WHEN " + condition) +
                                   " BEGIN SELECT RAISE(ABORT, '" + message + "'); END");
  }

 private:
  tests::TestFolder folder_;
  std::filesystem::path file_;
  int lock_wait_;
};

}  // namespace

std::unique_ptr<CompanyEngine> CompanyEngine::create(int lock_wait) {
#ifndef _WIN32
  const char* const engine = std::getenv("TALLYRA_TEST_ENGINE");
  if (engine && std::string_view(engine) == "postgresql") return company_on_server(lock_wait);
#endif
  return std::make_unique<CompanyFile>(lock_wait);
}

}  // namespace tallyra::behaviour
