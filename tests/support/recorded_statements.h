#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyra::stage {

// A statement that a class of the component sends, as the transcript tests have recorded it.
struct RecordedStatement {
  std::string class_name;
  std::string kind;  // "access" or "sqlserver"
  // Where a class lets a builder write the statement, "<GetUpdateSQL TABLE>" stands in it.
  std::string text;
};

// All of them, by class and kind. Throws when there are none.
const std::vector<RecordedStatement>& recorded_statements();

// The first statement of a class for Access with all these parts in it. Throws when there is none.
std::string recorded_statement(std::string_view class_name, const std::vector<std::string>& parts);

}  // namespace tallyra::stage
