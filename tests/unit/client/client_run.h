#pragma once

#include <gtest/gtest.h>

#include <map>
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
    const auto environment = [this](const std::string& name) -> std::optional<std::string> {
      const auto found = environment_.find(name);
      if (found == environment_.end()) return std::nullopt;
      return found->second;
    };
    Console console{out_, error_, error_is_terminal_, 80, progress_interval};
    if (answers_) console.answers = &*answers_;
    return run_client(words, console, environment);
  }

  static constexpr std::chrono::milliseconds progress_interval{5};

  ScriptedObject::Log log_;
  std::ostringstream out_;
  std::ostringstream error_;
  bool error_is_terminal_ = false;
  std::map<std::string, std::string> environment_;
  // What the person in front of the terminal types; nobody is there without.
  std::optional<std::istringstream> answers_;

 private:
  std::optional<automation::local::ScopedClass> class_;
};

}  // namespace tallyra::client
