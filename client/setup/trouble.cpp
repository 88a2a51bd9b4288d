#include "client/setup/trouble.h"

#include <algorithm>

#include "automation/folded_name.h"

namespace tallyra::client {
namespace {

constexpr const char* wait_for_the_lock =
    "the database itself is well: wait until the one who holds the lock has ended ('status' tells who closes "
    "or approves), then try again";
constexpr const char* give_rights =
    "the database itself is well: give this login the right to read and write the file of the database and "
    "the folder around it, or on a server the tables";

struct KnownError {
  std::string_view words;
  const char* advice;
};
constexpr KnownError known_errors[] = {
    {"is locked", wait_for_the_lock},
    {"lock timeout", wait_for_the_lock},
    {"lock request time out", wait_for_the_lock},
    {"could not lock", wait_for_the_lock},
    {"readonly database", give_rights},
    {"read-only", give_rights},
    {"unable to open database", give_rights},
    {"permission denied", give_rights},
    {"permission was denied", give_rights},
};

// Each run of blanks and control characters as one blank.
std::string in_one_line(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = static_cast<unsigned char>(c) <= ' ';
    if (!blank)
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  while (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

}  // namespace

std::string error_text(const automation::Error& error) {
  return "error " + std::to_string(error.number()) + ": " + in_one_line(error.description());
}

std::optional<std::string> advice_against(std::string_view error) {
  const std::string text = automation::folded(error);
  for (const KnownError& known : known_errors)
    if (text.find(known.words) != std::string::npos) return known.advice;
  return std::nullopt;
}

std::optional<Trouble> trouble_with(const Reader& reader, const std::string& advice) {
  if (!automation::equals_folded(reader.engine(), "SQLite")) return std::nullopt;
  try {
    reader.count("Select Count(*) As N From sqlite_master");
    return std::nullopt;
  } catch (const automation::Error& error) {
    const std::string text = error_text(error);
    return Trouble{text, advice_against(text).value_or(advice)};
  }
}

}  // namespace tallyra::client
