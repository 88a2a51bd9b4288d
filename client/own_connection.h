#pragma once

#include <string>

#include "automation/object.h"

namespace tallyra::client {

// A connection beside that of the call, for what the client looks up by itself.
class OwnConnection {
 public:
  explicit OwnConnection(const std::string& connection_string);

  // The answer of a statement "Select Count(*) As N From ...".
  std::int32_t count(const std::string& statement) const;

 private:
  automation::Object connection_;
};

}  // namespace tallyra::client
