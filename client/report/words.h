#pragma once

#include <string_view>

namespace tallyra::client {

// The texts of the report page in one language, and how its numbers are written.
struct ReportWords {
  std::string_view code;  // of the language, as HTML has it
  std::string_view decimal_point;
  std::string_view group_separator;

  std::string_view title;  // before the date
  std::string_view approved;
  std::string_view not_approved;
  std::string_view closed_by;
  std::string_view closed_at;
  std::string_view previous_close;
  std::string_view no_previous_close;

  std::string_view quantity;
  std::string_view value;
  std::string_view department;
  std::string_view departments;
  std::string_view material_type;
  std::string_view no_material_type;
  std::string_view part;
  std::string_view parts;
  std::string_view name;
  std::string_view total;
  std::string_view document;
  std::string_view stocktaking;
  std::string_view date;
  std::string_view lines;
  std::string_view before;
  std::string_view now;
  std::string_view change;
  std::string_view change_of_value;

  std::string_view value_by_department;
  std::string_view quantity_by_department;
  std::string_view by_department_and_type;
  std::string_view by_material_type;
  std::string_view largest_changes;
  std::string_view stocktaking_differences;
  std::string_view parts_without_cost;

  std::string_view value_note;  // what the values are
  std::string_view no_changes;
  std::string_view no_stocktakings;
  std::string_view all_have_costs;
};

extern const ReportWords english_words;
extern const ReportWords german_words;
extern const ReportWords chinese_words;

// For the language of a session, by the codes that the messages of the classes know: "DE", "de-AT", "GERMAN";
// any other code gives English.
const ReportWords& words_for(std::string_view language);

}  // namespace tallyra::client
