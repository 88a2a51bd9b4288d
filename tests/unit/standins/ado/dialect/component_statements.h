#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tallyra::tests::dialect {

// A statement the component sends. `@` stands where a date literal is delimited: # in the Access form, ' in
// the SQL Server form. Both forms must give the same text for SQLite.
struct ComponentStatement {
  std::string_view text;
  std::string_view sqlite;  // empty: unchanged
  bool refused = false;     // no engine accepts it
};

std::span<const ComponentStatement> component_statements();

std::string in_form(std::string_view text, char delimiter);

}  // namespace tallyra::tests::dialect
