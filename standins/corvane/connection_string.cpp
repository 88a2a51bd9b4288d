#include "standins/corvane/connection_string.h"

#include <algorithm>

#include "automation/convert.h"
#include "automation/folded_name.h"

namespace tallyra::standins::corvane {
namespace {

// How long the value at the start of the text is; a value in braces runs to the brace that closes it, "}}"
// being a brace inside.
std::size_t value_length(std::string_view text) {
  std::size_t at = text.find_first_not_of(' ');
  if (at == std::string_view::npos) return text.size();
  if (text[at] == '{') {
    for (++at; at < text.size(); ++at) {
      if (text[at] != '}') continue;
      if (at + 1 == text.size() || text[at + 1] != '}') break;
      ++at;
    }
  }
  return std::min(text.find(';', std::min(at, text.size())), text.size());
}

bool is_braced(std::string_view value) {
  return value.size() >= 2 && value.front() == '{' && value.back() == '}';
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
  if (!is_braced(part->value)) return part->value;
  std::string value = part->value.substr(1, part->value.size() - 2);
  for (std::size_t at = 0; (at = value.find("}}", at)) != std::string::npos; ++at) value.erase(at, 1);
  return value;
}

void ConnectionString::extend(std::string_view key, std::string_view suffix) {
  for (Part& part : parts_) {
    if (!automation::equals_folded(part.key, key)) continue;
    part.value.insert(is_braced(part.value) ? part.value.size() - 1 : part.value.size(), suffix);
    return;
  }
}

void ConnectionString::add_if_missing(std::string_view key, std::string_view value) {
  if (!find(key)) parts_.push_back({std::string(key), std::string(value)});
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
