#pragma once

#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "client/client.h"

namespace tallyra::client {

// A run of the client in this process, on whatever classes are registered in it.
class ClientProgram {
 public:
  explicit ClientProgram(std::vector<std::string> common = {}) : common_(std::move(common)) {}

  ExitStatus run(std::vector<std::string> words) {
    words.insert(words.end(), common_.begin(), common_.end());
    out_.str("");
    error_.str("");
    std::istringstream answers(answers_.value_or(""));
    Console console{out_, error_};
    if (answers_) console.answers = &answers;
    console.out_width = columns_;
    std::istringstream input(input_);
    console.input = &input;
    return run_client(words, console, [this](const std::string& name) -> std::optional<std::string> {
      const auto found = environment.find(name);
      return found == environment.end() ? std::nullopt : std::optional(found->second);
    });
  }

  // What the person in front of the terminal types, a line per question; nobody is there without.
  void answer(std::optional<std::string> lines) { answers_ = std::move(lines); }
  // Puts a terminal of that width behind the output.
  void show_in(std::size_t columns) { columns_ = columns; }
  // What stands on the input of the program.
  void feed(std::string input) { input_ = std::move(input); }
  std::string out() const { return out_.str(); }
  std::string error() const { return error_.str(); }
  // Both, for the message of a failed test.
  std::string all() const { return out() + error(); }

  std::map<std::string, std::string> environment;

 private:
  std::vector<std::string> common_;
  std::optional<std::string> answers_;
  std::string input_;
  std::size_t columns_ = 0;
  std::ostringstream out_;
  std::ostringstream error_;
};

}  // namespace tallyra::client
