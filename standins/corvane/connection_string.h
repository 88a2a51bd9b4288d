#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyra::standins::corvane {

// The parts of a connection string, "key=value;key={value with ; in it};...". Keys are compared without case
// and without blanks around them; of a repeated key the first counts. What is no pair is dropped; values keep
// their spelling.
class ConnectionString {
 public:
  explicit ConnectionString(std::string_view text);

  // Without braces; empty when there is no such key.
  std::string value(std::string_view key) const;
  // Adds to the end of a value, inside its braces if it has some. Precondition: the key is there.
  void extend(std::string_view key, std::string_view suffix);
  void add_if_missing(std::string_view key, std::string_view value);

  std::string text() const;

 private:
  struct Part {
    std::string key;
    std::string value;  // as it is spelled, with braces
  };
  const Part* find(std::string_view key) const;

  std::vector<Part> parts_;
};

}  // namespace tallyra::standins::corvane
