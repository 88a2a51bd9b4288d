#include "standins/corvane/statement.h"

namespace tallyra::standins::corvane {

std::string insert_statement(std::string_view table, const std::vector<Assignment>& assignments) {
  std::string columns;
  std::string values;
  for (const Assignment& assignment : assignments) {
    columns += columns.empty() ? "" : ",";
    columns += assignment.column;
    values += values.empty() ? "" : ",";
    values += assignment.literal;
  }
  return "Insert Into " + std::string(table) + "(" + columns + ") Values(" + values + ")";
}

std::string update_statement(std::string_view table, const std::vector<Assignment>& assignments) {
  std::string statement = "Update " + std::string(table) + " Set ";
  bool first = true;
  for (const Assignment& assignment : assignments) {
    if (!first) statement += ',';
    first = false;
    statement += assignment.column;
    statement += '=';
    statement += assignment.literal;
  }
  return statement;
}

}  // namespace tallyra::standins::corvane
