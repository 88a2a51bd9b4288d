#pragma once

#include <string>
#include <vector>

namespace tallyra::tests::dialect {

// The statements that the component sends, of every class and in the form of each kind of database, each
// once. Where a builder writes them, an example of what it writes stands in them.
std::vector<std::string> component_statements();
// Those of one class and kind, "access" or "sqlserver", in the order of their file.
std::vector<std::string> component_statements(const std::string& class_name, const std::string& kind);

// A text whose dates are delimited by @ with another sign in its place: # in the Access form, ' in the SQL
// Server form.
std::string in_form(std::string_view text, char delimiter);

}  // namespace tallyra::tests::dialect
