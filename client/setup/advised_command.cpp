#include "client/setup/advised_command.h"

#include <algorithm>

#include "client/database/connection_text.h"

namespace tallyra::client {
namespace {

bool is_plain(char c) {
  const bool word = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  return word || std::string_view("-_./:,@+").find(c) != std::string_view::npos;
}

std::string quoted(std::string_view word) {
#ifdef _WIN32
  constexpr char quote = '"';
  constexpr std::string_view quote_within = "\\\"";
#else
  constexpr char quote = '\'';
  constexpr std::string_view quote_within = "'\\''";
#endif
  std::string text(1, quote);
  for (const char c : word)
    if (c == quote)
      text += quote_within;
    else
      text += c;
  return text += quote;
}

}  // namespace

std::string shell_word(std::string_view word) {
#ifdef _WIN32
  const bool plain = std::ranges::all_of(word, [](char c) { return is_plain(c) || c == '\\'; });
#else
  const bool plain = std::ranges::all_of(word, is_plain);
#endif
  return plain && !word.empty() ? std::string(word) : quoted(word);
}

std::string advised_command(const std::vector<std::string>& words, const Session& session) {
  std::string command = "tallyra-client";
  for (const std::string& word : words) command.append(" ").append(shell_word(word));
  if (!session.db_word.empty())
    command.append(" --db ").append(shell_word(shown_connection(session.db_word)));
  return command;
}

}  // namespace tallyra::client
