#pragma once

#include <string>

namespace tallyra::stage {

// The text of a file among the tests, such as "transcript/close/stock_close_insert.access.txt", that a long
// text is held against. With TALLYRA_APPROVE=1 in the environment the file takes the actual text instead, and
// the comparison fails: such a run proves nothing.
std::string approved(const std::string& file, const std::string& actual);

}  // namespace tallyra::stage
