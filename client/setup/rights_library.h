#pragma once

#include <optional>
#include <string>
#include <vector>

#include "automation/object.h"
#include "client/session.h"

namespace tallyra::client {

// A flag per entry of right_names().
using RightFlags = std::vector<bool>;

// The library that the classes ask what a user may do.
class RightsLibrary {
 public:
  RightsLibrary(const Session& session, const std::string& user);

  // The table of the database in which it keeps the rights; nothing for a library that keeps them elsewhere
  // or does not say.
  std::optional<std::string> table() const;
  // What the user may do there, as the classes are told.
  RightFlags rights(const std::string& function) const;

 private:
  automation::Object object_;
};

}  // namespace tallyra::client
