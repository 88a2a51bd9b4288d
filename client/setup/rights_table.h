#pragma once

#include <optional>
#include <string>
#include <vector>

#include "client/setup/rights_library.h"
#include "client/verbs/context.h"

namespace tallyra::client {

// What the table of rights grants a user for a function.
struct RightsRow {
  std::string user;  // as it is stored, like the function
  std::string function;
  RightFlags flags;
};

// The table in which the rights library at hand keeps its rights.
class RightsTable {
 public:
  // Throws Refusal when the library keeps them elsewhere.
  explicit RightsTable(VerbContext& context);

  // By user and function; those of one user with the user's name.
  std::vector<RightsRow> rows() const;
  // The user's own row for the function.
  std::optional<RightsRow> find(const std::string& user, const std::string& function) const;
  void write(const RightsRow& row) const;
  void remove(const RightsRow& row) const;

 private:
  const Reader& reader_;
  std::string table_;
};

// "insert, update", "nothing".
std::string flags_text(const RightFlags& flags);

// Why nobody of that name can be granted a right: it is empty, or has something in it that statements of the
// classes cannot bear. Nothing for any other name.
std::optional<std::string> refusal_of_user_name(const std::string& user);
// Throws UsageError with it.
void require_user_name(const std::string& user);

}  // namespace tallyra::client
