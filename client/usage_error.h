#pragma once

#include <stdexcept>

namespace tallyra::client {

// The command line asks for something that cannot be called; the text says what is wrong and what would be
// right. Nothing has been called yet, or the object has refused the call before doing anything.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tallyra::client
