#include "company/schema_script.h"
#include "tests/support/company_engine.h"
#include "tests/support/postgresql_server.h"

namespace tallyra::behaviour {
namespace {

tests::PostgresqlServer* chosen_server = nullptr;
tests::PostgresqlServer* chosen_standby = nullptr;

class CompanyOnServer : public CompanyEngine {
 public:
  explicit CompanyOnServer(int lock_wait)
      : database_(server_.new_database(company::read_schema(TALLYRA_SERVER_SCHEMA))), lock_wait_(lock_wait) {}
  ~CompanyOnServer() override {
    if (chosen_server == nullptr) server_.drop_database(database_);
  }

  bool is_sqlite() const override { return false; }

  std::string connection_string() const override {
    const std::string limits = "options='-c lock_timeout=" + std::to_string(lock_wait_) + "'";
    if (chosen_standby == nullptr) return server_.connection_string(database_, "pqopt={" + limits + "}");
    return "Driver={PostgreSQL Unicode};Servername=127.0.0.1,127.0.0.1;Port=" +
           std::to_string(server_.port()) + "," + std::to_string(chosen_standby->port()) +
           ";Database=" + database_ + ";Username=tallyra;pqopt={target_session_attrs=read-write " + limits +
           "}";
  }

  std::vector<std::string> schema() const override { return {}; }
  std::filesystem::path file() const override { return {}; }

  // A function is not the company's own to make.
  void make_trigger(const std::string& name, const std::string& event, const std::string& table,
                    const std::string& condition, const std::string& message) const override {
    server_.administer(database_, "CREATE FUNCTION " + name +
                                      "() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE "
                                      "EXCEPTION USING MESSAGE='" +
                                      message +
                                      "', ERRCODE='23000'; END $$;"
                                      "CREATE TRIGGER " +
                                      name + " BEFORE " + event + " ON " + table + " FOR EACH ROW " +
                                      (condition.empty() ? "" : "WHEN (" + condition + ")") +
                                      " EXECUTE FUNCTION " + name + "()");
  }

 private:
  tests::PostgresqlServer& server_ = chosen_server ? *chosen_server : tests::PostgresqlServer::shared();
  std::string database_;
  int lock_wait_;
};

}  // namespace

void companies_on(tests::PostgresqlServer* server, tests::PostgresqlServer* standby) {
  chosen_server = server;
  chosen_standby = standby;
}

std::unique_ptr<CompanyEngine> company_on_server(int lock_wait) {
  return std::make_unique<CompanyOnServer>(lock_wait);
}

}  // namespace tallyra::behaviour
