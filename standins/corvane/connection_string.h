#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyra::standins::corvane {

// The parts of a connection string, "key=value;key={value with ; in it};...", or with the value between
// quotes. Keys are compared without case and without blanks around them; of a repeated key the first counts.
// What is no pair is dropped; values keep their spelling.
class ConnectionString {
 public:
  explicit ConnectionString(std::string_view text);

  // Without braces or quotes; empty when there is no such key.
  std::string value(std::string_view key) const;
  void remove(std::string_view key);
  // The value takes the place of every other under the key. It is put between braces where it must be.
  void set(std::string_view key, std::string_view value);
  // The same between quotes, for a value that is a connection string.
  void set_quoted(std::string_view key, std::string_view value);

  std::string text() const;

 private:
  struct Part {
    std::string key;
    std::string value;  // as it is spelled, with braces or quotes
  };
  const Part* find(std::string_view key) const;

  std::vector<Part> parts_;
};

}  // namespace tallyra::standins::corvane
