#pragma once

#include <string>
#include <string_view>

namespace tallyra::standins::ado {

// PostgreSQL stores names that nobody quotes in small letters; the other engines give them back as they were
// declared, which is in capitals. A name without a capital letter becomes one of capitals.
std::string folded_column_name(std::string_view name);

}  // namespace tallyra::standins::ado
