#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tallyra::standins::lexbank {

struct Message {
  std::int32_t number;
  std::string_view text;
};

// Everything that is said in one language. The words of generated rows go into statements between single
// quotes as they are, so they contain no apostrophe.
struct Texts {
  std::array<Message, 8> messages;
  std::string_view status_approved;
  std::string_view name_check;

  // The text of a message; empty for a number that is none.
  constexpr std::string_view message(std::int32_t number) const {
    for (const Message& message : messages)
      if (message.number == number) return message.text;
    return {};
  }
};

inline constexpr std::array<std::int32_t, 8> message_numbers{10000002, 10000003, 10000004, 10000016,
                                                             10000024, 10000112, 10000115, 20000005};

constexpr bool is_message(std::int32_t number) {
  for (const std::int32_t known : message_numbers)
    if (known == number) return true;
  return false;
}

// Each language asserts this of itself, so that one with a gap does not compile.
constexpr bool is_complete(const Texts& texts) {
  for (const std::int32_t number : message_numbers)
    if (texts.message(number).empty()) return false;
  for (const std::string_view word : {texts.status_approved, texts.name_check})
    if (word.empty() || word.find('\'') != std::string_view::npos) return false;
  return true;
}

extern const Texts english;
extern const Texts chinese;
extern const Texts german;

}  // namespace tallyra::standins::lexbank
