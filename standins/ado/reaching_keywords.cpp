#include "standins/ado/reaching_keywords.h"

#include <algorithm>
#include <array>
#include <string>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

constexpr auto reaching_keywords =
    std::to_array<std::string_view>({"LoadExt", "Tracefile", "FileDSN", "SaveFile"});

// Without blanks and braces around it.
std::string_view bare(std::string_view text) {
  constexpr std::string_view around = " \t{}";
  const auto begin = text.find_first_not_of(around);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(around) - begin + 1);
}

void refuse_part(std::string_view part) {
  const auto equals = part.find('=');
  if (equals == std::string_view::npos) return;
  const std::string_view name = bare(part.substr(0, equals));
  if (std::ranges::any_of(reaching_keywords,
                          [&](std::string_view entry) { return automation::equals_folded(entry, name); }))
    throw automation::Error(provider_error::permission_denied,
                            "The connection string reaches beyond the database: " + std::string(name));
}

}  // namespace

// The SQLite driver cuts at every semicolon, whatever braces stand around it.
void refuse_reaching_keywords(std::string_view odbc_string) {
  for (std::size_t begin = 0; begin <= odbc_string.size();) {
    const std::size_t end = std::min(odbc_string.find(';', begin), odbc_string.size());
    refuse_part(odbc_string.substr(begin, end - begin));
    begin = end + 1;
  }
}

}  // namespace tallyra::standins::ado
