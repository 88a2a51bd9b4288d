#include "tests/support/postgresql_server.h"

#include <fcntl.h>
#include <grp.h>
#include <libpq-fe.h>
#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <thread>

namespace tallyra::tests {
namespace {

constexpr std::string_view administrator = "postgres";
constexpr auto longest_wait = std::chrono::seconds(60);
constexpr auto longest_stop = std::chrono::seconds(20);

// Debian's folder of a version's programs, the newest of them.
std::string programs() {
  std::string found;
  std::error_code none;
  for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", none))
    if (std::filesystem::exists(version.path() / "bin/postgres"))
      found = std::max(found, (version.path() / "bin/").string());
  return found;
}

const passwd* unprivileged_user() {
  for (const char* const name : {"postgres", "nobody"})
    if (const passwd* const user = ::getpwnam(name)) return user;
  throw std::runtime_error("no unprivileged user on this machine");
}

int free_port() {
  const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (::bind(descriptor, generic, size) != 0 || ::getsockname(descriptor, generic, &size) != 0)
    throw std::runtime_error("no free port");
  ::close(descriptor);
  return ntohs(address.sin_port);
}

// In a process group of its own, so that a whole server can be ended; what it prints goes to the log.
pid_t spawn(const std::vector<std::string>& command, const std::string& log) {
  std::vector<char*> arguments;
  for (const std::string& part : command) arguments.push_back(const_cast<char*>(part.c_str()));
  arguments.push_back(nullptr);
  const passwd* const user = ::geteuid() == 0 ? unprivileged_user() : nullptr;
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::setsid();
  const int out = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  ::dup2(out, 1);
  ::dup2(out, 2);
  const bool is_unprivileged =
      user == nullptr ||
      (::setgroups(0, nullptr) == 0 && ::setgid(user->pw_gid) == 0 && ::setuid(user->pw_uid) == 0);
  // A test that is ended leaves no server behind.
  ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
  if (is_unprivileged) ::execv(arguments[0], arguments.data());
  ::_exit(127);
}

void run(const std::vector<std::string>& command, const std::string& log) {
  int status = 0;
  if (::waitpid(spawn(command, log), &status, 0) < 0 || status != 0) {
    std::ifstream text(log);
    throw std::runtime_error(command.front() + ": " + std::string(std::istreambuf_iterator<char>(text), {}));
  }
}

std::vector<pid_t> children_of(pid_t process) {
  const std::string number = std::to_string(process);
  std::ifstream list("/proc/" + number + "/task/" + number + "/children");
  std::vector<pid_t> children;
  for (pid_t child = 0; list >> child;) children.push_back(child);
  return children;
}

// What has ended and nobody has asked about yet is not.
bool is_alive(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string number;
  std::string name;
  char state = 'X';
  status >> number >> name >> state;
  return status && state != 'Z' && state != 'X';
}

using Session = std::unique_ptr<PGconn, void (*)(PGconn*)>;

Session open_session(const std::string& folder, int port, const std::string& database) {
  const std::string where = "host=" + folder + " port=" + std::to_string(port) + " dbname=" + database +
                            " user=" + std::string(administrator) +
                            " connect_timeout=5 options='-c client_min_messages=warning'";
  return {PQconnectdb(where.c_str()), PQfinish};
}

std::string joined(const std::vector<std::string>& statements) {
  std::string text;
  for (const std::string& statement : statements) text += statement + ";\n";
  return text;
}

}  // namespace

PostgresqlServer::PostgresqlServer() : port_(free_port()) {
  make();
}

PostgresqlServer::PostgresqlServer(const std::string& parent) : folder_(parent), port_(free_port()) {
  make();
}

void PostgresqlServer::make() {
  initialize();
  run({programs() + "initdb", "-D", data(), "-U", std::string(administrator), "-A", "trust", "-E", "UTF8",
       "--locale=C.UTF-8", "--no-sync", "--no-instructions"},
      folder_.file("log"));
  configure("wal_level=replica\nmax_wal_senders=4\nfull_page_writes=off\nmax_connections=60\n");
  std::ofstream(data() + "/pg_hba.conf") << "host all secured 127.0.0.1/32 scram-sha-256\n"
                                            "local all all trust\nhost all all 127.0.0.1/32 trust\n"
                                            "host replication all 127.0.0.1/32 trust\n";
  start();
  administer("postgres", "CREATE ROLE tallyra LOGIN");
}

PostgresqlServer::PostgresqlServer(Standby, PostgresqlServer& primary) : port_(free_port()) {
  initialize();
  run({programs() + "pg_basebackup", "-D", data(), "-R", "-X", "stream", "-c", "fast", "--no-sync", "-d",
       "host=127.0.0.1 port=" + std::to_string(primary.port()) + " user=postgres application_name=standby"},
      folder_.file("log"));
  configure("hot_standby=on\n");
  start();
  primary.administer("postgres", "ALTER SYSTEM SET synchronous_standby_names='ANY 1 (standby)'");
  primary.administer("postgres", "SELECT pg_reload_conf()");
}

PostgresqlServer::~PostgresqlServer() {
  stop();
}

// What is killed leaves its shared memory behind.
void PostgresqlServer::stop() {
  if (process_ == 0) return;
  ::kill(process_, SIGQUIT);
  const auto end = std::chrono::steady_clock::now() + longest_stop;
  while (::waitpid(process_, nullptr, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > end) return kill();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  process_ = 0;
}

// The folder belongs to whom the server runs as.
void PostgresqlServer::initialize() {
  if (::geteuid() != 0) return;
  const passwd* const user = unprivileged_user();
  if (::chown(folder_.path().c_str(), user->pw_uid, user->pw_gid) != 0)
    throw std::runtime_error("the server's folder cannot be given away");
}

void PostgresqlServer::configure(std::string_view settings) const {
  std::ofstream(data() + "/postgresql.conf", std::ios::app)
      << "listen_addresses='127.0.0.1'\nport=" << port_ << "\nunix_socket_directories='" << folder_.path()
      << "'\nfsync=off\nshared_buffers=64MB\nlog_min_messages=fatal\nrestart_after_crash=off\n"
      << settings;
}

PostgresqlServer& PostgresqlServer::shared() {
  static PostgresqlServer server;
  return server;
}

bool PostgresqlServer::is_installed() {
  return !programs().empty();
}

void PostgresqlServer::start() {
  process_ = spawn({programs() + "postgres", "-D", data()}, folder_.file("log"));
  wait_until_ready();
}

void PostgresqlServer::wait_until_ready() const {
  const auto end = std::chrono::steady_clock::now() + longest_wait;
  for (;;) {
    const Session session = open_session(folder_.path(), port_, "postgres");
    if (PQstatus(session.get()) == CONNECTION_OK) return;
    if (::waitpid(process_, nullptr, WNOHANG) != 0 || std::chrono::steady_clock::now() > end) {
      std::ifstream text(folder_.file("log"));
      throw std::runtime_error("the server does not start: " +
                               std::string(std::istreambuf_iterator<char>(text), {}));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

// The first process stands still while the others are looked for, so that no more come.
void PostgresqlServer::kill() {
  if (process_ == 0) return;
  ::kill(process_, SIGSTOP);
  const std::vector<pid_t> others = children_of(process_);
  ::kill(process_, SIGKILL);
  for (const pid_t other : others) ::kill(other, SIGKILL);
  ::waitpid(process_, nullptr, 0);
  process_ = 0;
  for (const pid_t other : others)
    while (is_alive(other)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  std::error_code ignored;
  std::filesystem::remove(data() + "/postmaster.pid", ignored);
}

void PostgresqlServer::promote() {
  administer("postgres", "SELECT pg_promote(true, 60)");
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

std::string PostgresqlServer::connection_string(const std::string& database, std::string_view more) const {
  return "Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=" + std::to_string(port_) +
         ";Database=" + database + ";Username=tallyra;" + std::string(more);
}

}  // namespace tallyra::tests
