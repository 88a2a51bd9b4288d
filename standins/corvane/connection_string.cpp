#include "standins/corvane/connection_string.h"

#include <algorithm>

#include "automation/convert.h"
#include "automation/folded_name.h"

namespace tallyra::standins::corvane {
namespace {

// The mark that ends a value which begins with this one; a doubled one is an ordinary character inside.
char closing_mark(char opening) {
  switch (opening) {
    case '{': return '}';
    case '"':
    case '\'': return opening;
    default: return '\0';
  }
}

// How long the value at the start of the text is.
std::size_t value_length(std::string_view text) {
  std::size_t at = text.find_first_not_of(' ');
  if (at == std::string_view::npos) return text.size();
  if (const char closing = closing_mark(text[at]); closing != '\0') {
    for (++at; at < text.size(); ++at) {
      if (text[at] != closing) continue;
      if (at + 1 == text.size() || text[at + 1] != closing) break;
      ++at;
    }
  }
  return std::min(text.find(';', std::min(at, text.size())), text.size());
}

bool is_enclosed(std::string_view value) {
  return value.size() >= 2 && value.back() == closing_mark(value.front());
}

std::string with_doubled(std::string_view value, char mark) {
  std::string text;
  for (const char c : value) text.append(c == mark ? 2 : 1, c);
  return text;
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
  while (!text.empty()) {
    const std::size_t equals = text.find('=');
    const std::size_t semicolon = text.find(';');
    if (equals == std::string_view::npos || semicolon < equals) {
      // No pair, most often nothing at all between two semicolons.
      text.remove_prefix(semicolon == std::string_view::npos ? text.size() : semicolon + 1);
      continue;
    }
    const std::string key = automation::trimmed(text.substr(0, equals));
    text.remove_prefix(equals + 1);
    const std::size_t length = value_length(text);
    parts_.push_back({key, automation::trimmed(text.substr(0, length))});
    text.remove_prefix(std::min(length + 1, text.size()));
  }
}

const ConnectionString::Part* ConnectionString::find(std::string_view key) const {
  for (const Part& part : parts_)
    if (automation::equals_folded(part.key, key)) return &part;
  return nullptr;
}

std::string ConnectionString::value(std::string_view key) const {
  const Part* part = find(key);
  if (!part) return {};
  if (!is_enclosed(part->value)) return part->value;
  std::string value = part->value.substr(1, part->value.size() - 2);
  const std::string doubled(2, part->value.back());
  for (std::size_t at = 0; (at = value.find(doubled, at)) != std::string::npos; ++at) value.erase(at, 1);
  return value;
}

void ConnectionString::remove(std::string_view key) {
  std::erase_if(parts_, [&](const Part& part) { return automation::equals_folded(part.key, key); });
}

void ConnectionString::set(std::string_view key, std::string_view value) {
  remove(key);
  const bool plain = value.find_first_of("[]{}(),;?*=!@\"'") == std::string_view::npos &&
                     automation::trimmed(value) == value;
  parts_.push_back({std::string(key), plain ? std::string(value) : '{' + with_doubled(value, '}') + '}'});
}

void ConnectionString::set_quoted(std::string_view key, std::string_view value) {
  remove(key);
  parts_.push_back({std::string(key), '"' + with_doubled(value, '"') + '"'});
}

std::string ConnectionString::text() const {
  std::string text;
  for (const Part& part : parts_) {
    if (!text.empty()) text += ';';
    text += part.key;
    text += '=';
    text += part.value;
  }
  return text;
}

}  // namespace tallyra::standins::corvane
