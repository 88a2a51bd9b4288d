#include "standins/ado/connection_string.h"

#include <optional>
#include <vector>

#include "automation/folded_name.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

using automation::equals_folded;

struct Written {
  std::string_view name;
  std::string_view value;  // as written, with its braces or quotes
  bool bare = false;       // a word without an equals sign
};

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// The position behind a value that begins at `begin`: at its semicolon or at the end. Within braces or quotes
// a semicolon is an ordinary character, a doubled closing mark too.
std::size_t value_end(std::string_view text, std::size_t begin) {
  std::size_t at = text.find_first_not_of(' ', begin);
  if (at == std::string_view::npos) return text.size();
  const char open = text[at];
  if (open == '{' || open == '"' || open == '\'') {
    const char close = open == '{' ? '}' : open;
    for (++at; at < text.size(); ++at) {
      if (text[at] != close) continue;
      if (at + 1 < text.size() && text[at + 1] == close)
        ++at;
      else
        break;
    }
  }
  const auto end = text.find(';', std::min(at, text.size()));
  return end == std::string_view::npos ? text.size() : end;
}

std::vector<Written> split(std::string_view text) {
  std::vector<Written> keywords;
  for (std::size_t at = 0; at < text.size();) {
    const auto equals = text.find_first_of("=;", at);
    if (equals == std::string_view::npos || text[equals] == ';') {
      const auto word = trimmed(text.substr(at, equals == std::string_view::npos ? equals : equals - at));
      if (!word.empty()) keywords.push_back({word, {}, true});
      if (equals == std::string_view::npos) break;
      at = equals + 1;
      continue;
    }
    const auto end = value_end(text, equals + 1);
    keywords.push_back(
        {trimmed(text.substr(at, equals - at)), trimmed(text.substr(equals + 1, end - equals - 1))});
    at = end + 1;
  }
  return keywords;
}

std::string without_quotes(std::string_view value) {
  if (value.size() < 2 || value.front() != value.back() || (value.front() != '"' && value.front() != '\''))
    return std::string(value);
  const char quote = value.front();
  std::string result;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    result += value[i];
    if (value[i] == quote && i + 2 < value.size() && value[i + 1] == quote) ++i;
  }
  return result;
}

// What stands in braces or quotes, with doubled closing marks made single.
std::string bare(std::string_view value) {
  if (value.size() < 2 || value.front() != '{' || value.back() != '}') return without_quotes(value);
  std::string result;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    result += value[i];
    if (value[i] == '}' && i + 2 < value.size() && value[i + 1] == '}') ++i;
  }
  return result;
}

void append(std::string& out, std::string_view name, std::string_view value) {
  if (!out.empty()) out += ';';
  out.append(name).append(1, '=').append(value);
}

struct Renamed {
  std::string_view provider_name;
  std::string_view odbc_name;  // empty: means nothing to ODBC
};
constexpr Renamed renamed[] = {
    {"Data Source", "DSN"}, {"Initial Catalog", "DATABASE"}, {"User ID", "UID"},
    {"Password", "PWD"},    {"Persist Security Info", ""},
};

std::string_view odbc_name(std::string_view name) {
  for (const Renamed& entry : renamed)
    if (equals_folded(entry.provider_name, name)) return entry.odbc_name;
  return name;
}

class OdbcString {
 public:
  OdbcString(bool own_user, bool own_password) : own_user_(own_user), own_password_(own_password) {}

  void add_client_string(std::string_view client_string) {
    for (const Written& keyword : split(client_string)) {
      if (equals_folded(keyword.name, "Provider")) {
        if (!is_odbc_provider(without_quotes(keyword.value))) raise(ado_error::provider_not_found);
      } else if (equals_folded(keyword.name, "Extended Properties")) {
        const std::string extended = without_quotes(keyword.value);
        for (const Written& odbc_keyword : split(extended)) add(odbc_keyword);
      } else {
        add(keyword);
      }
    }
  }

  std::string text;

 private:
  void add(const Written& keyword) {
    if (keyword.bare) {
      if (!text.empty()) text += ';';
      text += keyword.name;
      return;
    }
    const std::string_view name = odbc_name(keyword.name);
    if (name.empty() || (own_user_ && equals_folded(name, "UID")) ||
        (own_password_ && equals_folded(name, "PWD")))
      return;
    if (name.data() == keyword.name.data())
      append(text, name, keyword.value);
    else
      append(text, name, in_braces_if_needed(without_quotes(keyword.value)));
  }

  bool own_user_;
  bool own_password_;
};

}  // namespace

std::string in_braces_if_needed(std::string_view value) {
  const bool quoted = value.starts_with('"') || value.starts_with('\'');
  if (value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos && trimmed(value) == value && !quoted)
    return std::string(value);
  std::string result = "{";
  for (const char c : value) result.append(c == '}' ? 2 : 1, c);
  return result += '}';
}

bool is_odbc_provider(std::string_view provider) {
  provider = trimmed(provider);
  constexpr std::string_view odbc = "MSDASQL";
  return provider.empty() || equals_folded(provider, odbc) ||
         (provider.size() > odbc.size() && equals_folded(provider.substr(0, odbc.size()), odbc) &&
          provider[odbc.size()] == '.');
}

std::string odbc_connection_string(std::string_view client_string, std::string_view user,
                                   std::string_view password) {
  OdbcString result(!user.empty(), !password.empty());
  result.add_client_string(client_string);
  if (!user.empty()) append(result.text, "UID", in_braces_if_needed(user));
  if (!password.empty()) append(result.text, "PWD", in_braces_if_needed(password));
  return std::move(result.text);
}

const std::string* ConnectionSource::find(std::string_view name) const {
  for (const Keyword& keyword : keywords)
    if (equals_folded(keyword.name, name)) return &keyword.value;
  return nullptr;
}

ConnectionSource read_connection_string(std::string_view client_string, std::string_view user,
                                        std::string_view password, std::int32_t login_seconds) {
  ConnectionSource source;
  source.odbc_string = odbc_connection_string(client_string, user, password);
  source.login_seconds = login_seconds;
  for (const Written& keyword : split(client_string)) {
    if (keyword.bare) continue;
    if (equals_folded(keyword.name, "Provider")) {
      source.names_provider = true;
    } else if (equals_folded(keyword.name, "Extended Properties")) {
      const std::string extended = without_quotes(keyword.value);
      for (const Written& inner : split(extended))
        if (!inner.bare) source.keywords.push_back({std::string(inner.name), bare(inner.value)});
    } else {
      source.keywords.push_back({std::string(keyword.name), bare(keyword.value)});
    }
  }
  return source;
}

std::string without_password(std::string_view odbc_string) {
  std::string text;
  for (const Written& keyword : split(odbc_string))
    if (!keyword.bare && !equals_folded(keyword.name, "PWD")) append(text, keyword.name, keyword.value);
  return text;
}

}  // namespace tallyra::standins::ado
