#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "automation/local/local_classes.h"
#include "client/client.h"
#include "tests/unit/client/scripted_object.h"

namespace tallyra::client {

// A run of the client with a class that does what a test says.
class Client : public testing::Test {
 protected:
  void script_class(const char* prog_id, std::string method, ScriptedObject::Body body, float number = 0,
                    std::string description = {}) {
    class_.emplace(prog_id, [=, this] {
      auto* scripted = new ScriptedObject(log_);
      automation::Object object(scripted);
      scripted->session_properties(number, description).method(method, body);
      return object;
    });
  }

  ExitStatus run(const std::vector<std::string>& words) {
    return run_client(words, {out_, error_, error_is_terminal_, 80, progress_interval});
  }

  static constexpr std::chrono::milliseconds progress_interval{5};

  ScriptedObject::Log log_;
  std::ostringstream out_;
  std::ostringstream error_;
  bool error_is_terminal_ = false;

 private:
  std::optional<automation::local::ScopedClass> class_;
};

}  // namespace tallyra::client
