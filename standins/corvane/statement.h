#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standins/corvane/assignment.h"

namespace tallyra::standins::corvane {

// "Insert Into T(A,B) Values(1,'x')"
std::string insert_statement(std::string_view table, const std::vector<Assignment>& assignments);
// "Update T Set A=1,B='x'": every row of the table, until the caller appends a condition.
std::string update_statement(std::string_view table, const std::vector<Assignment>& assignments);

}  // namespace tallyra::standins::corvane
