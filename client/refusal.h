#pragma once

#include <stdexcept>
#include <string>

#include "client/exit_status.h"

namespace tallyra::client {

// A verb does not do what was asked, and the text says why and what to do instead.
class Refusal : public std::runtime_error {
 public:
  explicit Refusal(const std::string& text, ExitStatus status = exit_failed)
      : std::runtime_error(text), status_(status) {}
  ExitStatus status() const { return status_; }

 private:
  ExitStatus status_;
};

}  // namespace tallyra::client
