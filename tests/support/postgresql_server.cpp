#include "tests/support/postgresql_server.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "tests/support/server_process.h"

namespace tallyra::tests {
namespace {

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

}  // namespace

PostgresqlServer::PostgresqlServer() : port_(free_port()) {
  make();
}

PostgresqlServer::PostgresqlServer(const std::string& parent) : folder_(parent), port_(free_port()) {
  make();
}

void PostgresqlServer::make() {
  give_to_unprivileged_user(folder_.path());
  run_program({programs() + "initdb", "-D", data(), "-U", "postgres", "-A", "trust", "-E", "UTF8",
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
  give_to_unprivileged_user(folder_.path());
  run_program(
      {programs() + "pg_basebackup", "-D", data(), "-R", "-X", "stream", "-c", "fast", "--no-sync", "-d",
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
  process_ = start_program({programs() + "postgres", "-D", data()}, folder_.file("log"));
  wait_until_ready();
}

void PostgresqlServer::wait_until_ready() const {
  const auto end = std::chrono::steady_clock::now() + longest_wait;
  for (;;) {
    if (is_ready()) return;
    if (::waitpid(process_, nullptr, WNOHANG) != 0 || std::chrono::steady_clock::now() > end)
      throw std::runtime_error("the server does not start: " + log_text(folder_.file("log")));
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

std::string PostgresqlServer::connection_string(const std::string& database, std::string_view more) const {
  return "Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=" + std::to_string(port_) +
         ";Database=" + database + ";Username=tallyra;" + std::string(more);
}

}  // namespace tallyra::tests
