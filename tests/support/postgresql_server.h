#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/test_folder.h"

namespace tallyra::tests {

// A database server of the test's own in a folder of its own, by socket and by TCP on a free port; server and
// folder go with the object. It runs as an unprivileged user, also where the tests run as root. Its settings
// trade safety against a power cut for speed; against the death of its processes it is as safe as any.
class PostgresqlServer {
 public:
  PostgresqlServer();
  // In a folder within this one, which its unprivileged user can get to.
  explicit PostgresqlServer(const std::string& parent);
  // A standby of the other, to which every commit of the other waits to be copied.
  static constexpr struct Standby {
  } standby{};
  PostgresqlServer(Standby, PostgresqlServer& primary);
  ~PostgresqlServer();
  PostgresqlServer(const PostgresqlServer&) = delete;
  PostgresqlServer& operator=(const PostgresqlServer&) = delete;

  // One for the whole test program.
  static PostgresqlServer& shared();
  // Whether this machine has the server's programs.
  static bool is_installed();

  // A new database, empty or with the tables that the statements make; owned by the user "tallyra", who may
  // nothing else. Databases of the same statements are copies of one.
  std::string new_database(const std::vector<std::string>& statements = {});
  void drop_database(const std::string& name) const;
  // Without any check, as the server's own administrator. The first column of the first row; empty when there
  // is none.
  std::string administer(const std::string& database, const std::string& sql) const;

  // For ADO, as "tallyra" by TCP; `more` is more of it.
  std::string connection_string(const std::string& database, std::string_view more = {}) const;
  int port() const { return port_; }
  std::string socket_folder() const { return folder_.path(); }

  // Ends all its processes at once, without a chance to tidy up.
  void kill();
  // After a kill.
  void start();
  // A standby becomes a server that one can write to; returns when it is.
  void promote();

 private:
  void make();
  void stop();
  void configure(std::string_view settings) const;
  void wait_until_ready() const;
  bool is_ready() const;
  std::string data() const { return folder_.file("data"); }

  TestFolder folder_;
  int port_;
  pid_t process_ = 0;
  std::vector<std::pair<std::string, std::string>> templates_;  // statements, database
  int databases_ = 0;
};

}  // namespace tallyra::tests
