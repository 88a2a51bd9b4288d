#pragma once

#include <string>
#include <string_view>

namespace tallyra::standins::corvane {

// A letter or '_' followed by letters, digits and '_', as names of tables and columns are by default.
bool is_plain_name(std::string_view name);

// The name as a statement writes it: as it is, or in brackets when it is no plain name or a word of the
// language. Precondition: the name holds no ']' (such names have no form that all engines read).
void append_column_name(std::string& out, std::string_view name);

}  // namespace tallyra::standins::corvane
