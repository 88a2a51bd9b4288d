#include "client/report_text.h"

#include <cmath>

#include "client/output/text_table.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

// Error numbers are whole; a single's default text would turn 10000003 into 1E+07.
std::string number_text(double number) {
  constexpr double largest_exact = 9007199254740992.0;
  if (number == std::floor(number) && std::fabs(number) <= largest_exact)
    return std::to_string(static_cast<long long>(number));
  return shown_text(automation::Value(number));
}

}  // namespace

std::string report_text(const Outcome& outcome) {
  std::string text;
  TextTable summary;
  summary.add_row({"Class", outcome.prog_id});
  summary.add_row({"Member", outcome.member});
  if (!outcome.raised) {
    const auto* single = outcome.result.get_if<float>();
    summary.add_row({"Result", single ? number_text(*single) : shown_text(outcome.result)});
  }
  if (outcome.error_number) {
    summary.add_row({"ErrNumber", number_text(*outcome.error_number)});
    summary.add_row({"ErrDescription", outcome.error_description});
  }
  summary.append_to(text);

  if (!outcome.returned_arguments.empty()) {
    TextTable arguments;
    arguments.add_row({"Argument", "Type", "Value"});
    for (const auto& argument : outcome.returned_arguments)
      arguments.add_row(
          {std::to_string(argument.position), type_name(argument.value), shown_text(argument.value)});
    text += '\n';
    arguments.append_with_heading(text);
  }

  if (!outcome.fields.empty()) {
    TextTable fields;
    fields.add_row({"Field", "Type", "Value"});
    for (const auto& field : outcome.fields)
      fields.add_row({field.name, type_name(field.value), shown_text(field.value)});
    text += '\n';
    fields.append_with_heading(text);
  }
  return text;
}

}  // namespace tallyra::client
