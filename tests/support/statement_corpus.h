#pragma once

#include <string_view>

namespace tallyra::stage {

// Takes a statement down that a class has sent to a database of a kind: a line "class<TAB>kind<TAB>statement"
// is added to the file that TALLYRA_STATEMENTS names in the environment. Does nothing without it.
void record_statement(std::string_view class_name, std::string_view system_database,
                      std::string_view statement);

}  // namespace tallyra::stage
