#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/error.h"
#include "standins/ado/postgresql/shape.h"
#include "standins/ado/postgresql/wire.h"

namespace tallyra::standins::ado {

// One statement on its way to the server.
struct Command {
  const std::string& sql;
  Repeat repeat = Repeat::unknown;
  const std::string* prepared = nullptr;  // the name under which the server has its shape
  const std::vector<const char*>* values = nullptr;
};

// What the server said of a statement.
struct StatementFailure : automation::Error {
  explicit StatementFailure(const Result& result);
  std::string state;
};

// A failed statement takes the whole transaction along on this server. Here it leaves the others, as clients
// of ADO know it: the server goes back to a savepoint, and what has been done since is done again. One is set
// before the second statement, so that nothing from before it, no lock either, is ever let go; and a new one
// before a statement as soon as something has been done since the last that could not be done again. Each
// goes in the same journey as the statement; rows of given values need one for many.
class Transaction {
 public:
  explicit Transaction(Wire& wire) : wire_(wire) {}

  // Begun by `begin`; a client may also run BEGIN as a statement, which is protected as well.
  bool is_open() const { return open_; }
  void begin();
  // Throws Error unless the server says that it has committed. The transaction then stays open without being
  // of any use, until it is rolled back.
  void commit();
  void rollback();

  // Throws StatementFailure when the server refuses the statement, any other Error when nothing goes any
  // more.
  Result run(const Command& command);

  // Prepares a statement, after the server has forgotten another of the name `discarded` unless that is
  // empty. Gives the description; nothing when the server refuses.
  Result prepare(const std::string& name, const std::string& sql, const std::vector<Oid>& types,
                 const std::string& discarded);

  // How often something was taken back, and settings with it.
  unsigned taken_back() const { return taken_back_; }

 private:
  Result run_alone(const Command& command);
  Result run_protected(const Command& command);
  Result run_control(const std::string& sql);
  void add(const Command& command);
  std::vector<Result>& exchange();
  bool needs_savepoint() const;
  void note(const Command& command);
  void go_back();
  void start_over(bool repeatable);
  void require_usable() const;
  [[noreturn]] void lose(const std::string& reason);

  Wire& wire_;
  bool open_ = false;
  std::optional<std::string> lost_;  // why nothing can be committed any more

  // Since the savepoint, or since the transaction began.
  bool ran_ = false;  // a statement
  bool savepoint_ = false;
  bool unrepeatable_ = true;  // something was done that cannot be done again
  std::vector<std::string> repeats_;
  std::size_t repeated_bytes_ = 0;
  unsigned taken_back_ = 0;
};

}  // namespace tallyra::standins::ado
