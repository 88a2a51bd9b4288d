#include "client/report_text.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "client/display_width.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

constexpr std::size_t gap = 2;

class Table {
 public:
  void add_row(std::initializer_list<std::string_view> cells) {
    Row& row = rows_.emplace_back();
    for (const std::string_view cell : cells) {
      row.push_back(printable_lines(cell));
      const std::size_t column = row.size() - 1;
      if (column == widths_.size()) widths_.push_back(0);
      for (const auto& line : row.back()) widths_[column] = std::max(widths_[column], display_width(line));
    }
  }

  // Draws a line under the first row.
  void append_with_heading(std::string& out) const { append(out, true); }
  void append_to(std::string& out) const { append(out, false); }

 private:
  using Cell = std::vector<std::string>;
  using Row = std::vector<Cell>;

  void append(std::string& out, bool heading) const {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      append_row(out, rows_[i]);
      if (heading && i == 0) append_rule(out);
    }
  }

  void append_row(std::string& out, const Row& row) const {
    std::size_t height = 0;
    for (const Cell& cell : row) height = std::max(height, cell.size());
    for (std::size_t line = 0; line < height; ++line) {
      std::size_t owed = 0;  // blanks before the next text; none are written behind the last one
      for (std::size_t column = 0; column < row.size(); ++column) {
        const std::string_view text = line < row[column].size() ? row[column][line] : std::string_view();
        if (!text.empty()) {
          out.append(owed, ' ').append(text);
          owed = 0;
        }
        owed += widths_[column] - display_width(text) + gap;
      }
      out += '\n';
    }
  }

  void append_rule(std::string& out) const {
    for (std::size_t column = 0; column < widths_.size(); ++column) {
      if (column != 0) out.append(gap, ' ');
      out.append(widths_[column], '-');
    }
    out += '\n';
  }

  std::vector<Row> rows_;
  std::vector<std::size_t> widths_;
};

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
  Table summary;
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
    Table arguments;
    arguments.add_row({"Argument", "Type", "Value"});
    for (const auto& argument : outcome.returned_arguments)
      arguments.add_row(
          {std::to_string(argument.position), type_name(argument.value), shown_text(argument.value)});
    text += '\n';
    arguments.append_with_heading(text);
  }

  if (!outcome.fields.empty()) {
    Table fields;
    fields.add_row({"Field", "Type", "Value"});
    for (const auto& field : outcome.fields)
      fields.add_row({field.name, type_name(field.value), shown_text(field.value)});
    text += '\n';
    fields.append_with_heading(text);
  }
  return text;
}

}  // namespace tallyra::client
