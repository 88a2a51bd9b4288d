#include "standins/ado/reaching_keywords.h"

#include <algorithm>
#include <array>
#include <string>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/connection_string.h"
#include "standins/ado/library_options.h"

namespace tallyra::standins::ado {
namespace {

using automation::is_one_of;

// A letter with a digit is what the PostgreSQL driver takes for the word before it, CX several switches in
// one.
constexpr auto reaching_keywords =
    std::to_array<std::string_view>({"LoadExt", "Tracefile", "FileDSN", "SaveFile", "CX"});
// Nothing without a value; the logs neither with what turns them off.
constexpr auto commands = std::to_array<std::string_view>({"ConnSettings", "A6"});
constexpr auto logs = std::to_array<std::string_view>({"CommLog", "B3", "Debug", "B2"});
constexpr auto library_options = std::to_array<std::string_view>({"pqopt", "D5"});

// Without blanks and braces around it.
std::string_view bare(std::string_view text) {
  constexpr std::string_view around = " \t{}";
  const auto begin = text.find_first_not_of(around);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(around) - begin + 1);
}

bool reaches(std::string_view name, std::string_view value) {
  if (is_one_of(reaching_keywords, name)) return true;
  if (is_one_of(commands, name)) return !value.empty();
  if (is_one_of(logs, name)) return !value.empty() && value != "0";
  return is_one_of(library_options, name) &&
         std::ranges::any_of(read_library_options(value), [](const Keyword& option) {
           return is_refused_option(option.name, option.value);
         });
}

void refuse(std::string_view name, std::string_view value) {
  if (reaches(name, value))
    throw automation::Error(provider_error::permission_denied,
                            "The connection string reaches beyond the database: " + std::string(name));
}

void refuse_part(std::string_view part) {
  const auto equals = part.find('=');
  if (equals != std::string_view::npos) refuse(bare(part.substr(0, equals)), bare(part.substr(equals + 1)));
}

}  // namespace

// The SQLite driver cuts at every semicolon, whatever braces stand around it; others do not.
void refuse_reaching_keywords(std::string_view odbc_string) {
  for (const Keyword& keyword : read_connection_string(odbc_string, {}, {}, 0).keywords)
    refuse(keyword.name, keyword.value);
  for (std::size_t begin = 0; begin <= odbc_string.size();) {
    const std::size_t end = std::min(odbc_string.find(';', begin), odbc_string.size());
    refuse_part(odbc_string.substr(begin, end - begin));
    begin = end + 1;
  }
}

}  // namespace tallyra::standins::ado
