#pragma once

#include <optional>
#include <string>
#include <vector>

#include "client/call_run.h"
#include "client/own_connection.h"

namespace tallyra::client {

// Stands beside the calls of a session and tells what the classes take in silence. Needs an Apartment.
class CallGuard {
 public:
  explicit CallGuard(const Session& session) : session_(session) {}

  // Before a call: throws UsageError for a text that a column of numbers would take for another number.
  void before(const Call& call);
  // After it: what is wrong although the class may say success. A database was lacking, there was no such
  // row, a posting has no number.
  std::vector<std::string> after(const Call& call, const Outcome& outcome) const;

 private:
  void check_numbers(const Call& call);
  void look_for_row(const Call& call);

  const Session& session_;
  // For as many calls as there are.
  std::optional<OwnConnection> connection_;
  // Of the call before which it was looked for; empty when there is one or that is not known.
  std::string missing_row_;
};

}  // namespace tallyra::client
