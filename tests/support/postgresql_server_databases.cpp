// What a server's administrator does in it, and the databases that tests are given.

#include <libpq-fe.h>

#include <memory>
#include <stdexcept>

#include "tests/support/postgresql_server.h"

namespace tallyra::tests {
namespace {

using Session = std::unique_ptr<PGconn, void (*)(PGconn*)>;

Session open_session(const std::string& folder, int port, const std::string& database) {
  const std::string where = "host=" + folder + " port=" + std::to_string(port) + " dbname=" + database +
                            " user=postgres connect_timeout=5 options='-c client_min_messages=warning'";
  return {PQconnectdb(where.c_str()), PQfinish};
}

std::string joined(const std::vector<std::string>& statements) {
  std::string text;
  for (const std::string& statement : statements) text += statement + ";\n";
  return text;
}

}  // namespace

bool PostgresqlServer::is_ready() const {
  return PQstatus(open_session(folder_.path(), port_, "postgres").get()) == CONNECTION_OK;
}

std::string PostgresqlServer::administer(const std::string& database, const std::string& sql) const {
  const Session session = open_session(folder_.path(), port_, database);
  const std::unique_ptr<PGresult, void (*)(PGresult*)> result(PQexec(session.get(), sql.c_str()), PQclear);
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
    throw std::runtime_error(std::string(PQerrorMessage(session.get())) + " (" + sql + ")");
  return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
}

std::string PostgresqlServer::new_database(const std::vector<std::string>& statements) {
  const std::string name = "test" + std::to_string(++databases_);
  const std::string script = joined(statements);
  for (const auto& [known, copied] : templates_) {
    if (known != script) continue;
    administer("postgres", "CREATE DATABASE " + name + " OWNER tallyra TEMPLATE " + copied);
    return name;
  }
  const std::string original = "template_" + name;
  administer("postgres", "CREATE DATABASE " + original + " OWNER tallyra TEMPLATE template0");
  administer(original, "ALTER SCHEMA public OWNER TO tallyra");
  if (!script.empty()) administer(original, "SET ROLE tallyra;\n" + script);
  templates_.emplace_back(script, original);
  administer("postgres", "CREATE DATABASE " + name + " OWNER tallyra TEMPLATE " + original);
  return name;
}

void PostgresqlServer::drop_database(const std::string& name) const {
  administer("postgres", "DROP DATABASE " + name + " WITH (FORCE)");
}

}  // namespace tallyra::tests
