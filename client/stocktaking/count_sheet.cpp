#include "client/stocktaking/count_sheet.h"

#include <algorithm>
#include <map>

#include "automation/convert.h"
#include "automation/folded_name.h"
#include "client/display_width.h"
#include "client/stocktaking/separated_values.h"
#include "client/strict_number.h"

namespace tallyra::client {
namespace {

constexpr std::size_t longest_part = 40;
constexpr std::size_t longest_notes = 255;
constexpr const char* known_columns[] = {"part", "counted", "department", "date", "price", "notes"};

// What a spreadsheet has written in an older encoding, or as something that is no text at all.
bool is_readable(const SeparatedRow& row) {
  return std::ranges::all_of(row.cells, is_text);
}
constexpr const char* unreadable =
    "there are characters that are no UTF-8 text; save the sheet as CSV in UTF-8";

class SheetReader {
 public:
  SheetReader(CountSheet& sheet, SheetErrors& errors) : sheet_(sheet), errors_(errors) {}

  // Whether the sheet can be read on.
  bool heading(const SeparatedRow& row) {
    if (!is_readable(row)) {
      wrong(row.line, unreadable);
      return false;
    }
    width_ = row.cells.size();
    bool complete = true;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const std::string name = automation::folded(automation::trimmed(row.cells[i]));
      if (columns_.emplace(name, i).second ||
          std::ranges::find(known_columns, name) == std::end(known_columns))
        continue;
      complete = false;
      wrong(row.line, "there are two columns '" + name + "'");
    }
    for (const char* needed : {"part", "counted"})
      if (!columns_.contains(needed)) {
        complete = false;
        wrong(row.line, std::string("there is no column '") + needed + "'");
      }
    return complete;
  }

  void line(const SeparatedRow& row) {
    row_ = &row;
    if (row.open_quote)
      wrong(row.line,
            "a quote is opened and not closed: the lines that follow it are taken for a part of it");
    if (!is_readable(row)) {
      wrong(row.line, unreadable);
      return;
    }
    if (row.cells.size() > width_) {
      wrong(row.line, "there are " + std::to_string(row.cells.size()) + " cells under " +
                          std::to_string(width_) +
                          " columns: a number has a point, 1.5, and a text with a comma stands in quotes");
      return;
    }
    department(cell("department"));
    day(cell("date"));
    const std::string counted = cell("counted");
    if (counted.empty()) {
      ++sheet_.not_counted;
      return;
    }
    CountedLine line{row.line, cell("part"), 0, {}, cell("notes")};
    part(line.part);
    if (const auto quantity = number("counted", counted)) line.quantity = *quantity;
    if (const std::string price = cell("price"); !price.empty()) line.price = number("price", price);
    if (line.notes.size() > longest_notes) wrong(row.line, "the notes are too long");
    sheet_.lines.push_back(std::move(line));
  }

 private:
  void wrong(std::size_t line, std::string text) { errors_.push_back({line, std::move(text)}); }

  std::string cell(const char* column) const {
    const auto found = columns_.find(column);
    if (found == columns_.end() || found->second >= row_->cells.size()) return {};
    return automation::trimmed(row_->cells[found->second]);
  }

  void department(const std::string& text) {
    if (text.empty()) return;
    if (sheet_.department.empty()) sheet_.department = text;
    if (sheet_.department != text)
      wrong(row_->line, "department " + text + " on a sheet of department " + sheet_.department);
  }

  void day(const std::string& text) {
    if (text.empty()) return;
    const auto day = automation::parse_date(text);
    if (!day)
      wrong(row_->line, "'" + text + "' is no date: write YYYY/MM/DD");
    else if (!sheet_.day)
      sheet_.day = day;
    else if (sheet_.day->serial != day->serial)
      wrong(row_->line, "date " + text + " on a sheet of another date");
  }

  void part(const std::string& text) {
    if (text.empty()) wrong(row_->line, "there is no part");
    if (text.size() > longest_part) wrong(row_->line, "part " + text + " is too long for a part number");
    // Keys stand in the statements of the classes as they are.
    if (text.find('\'') != std::string::npos)
      wrong(row_->line, "part " + text + " has an apostrophe in it and cannot be counted");
  }

  std::optional<double> number(const char* column, const std::string& text) {
    const auto number = strict_number(text);
    if (!number)
      wrong(row_->line, std::string(column) + ": " + number_refusal(text));
    else if (*number < 0)
      wrong(row_->line, std::string(column) + ": " + text + " is below zero");
    return number;
  }

  CountSheet& sheet_;
  SheetErrors& errors_;
  std::map<std::string, std::size_t, std::less<>> columns_;
  std::size_t width_ = 0;  // cells of the heading
  const SeparatedRow* row_ = nullptr;
};

}  // namespace

CountSheet read_sheet(const std::string& text, SheetErrors& errors) {
  CountSheet sheet;
  SheetReader reader(sheet, errors);
  const auto rows = separated_rows(text);
  if (rows.empty()) errors.push_back({0, "the sheet is empty"});
  if (rows.empty() || !reader.heading(rows.front())) return sheet;
  for (const SeparatedRow& row : std::span(rows).subspan(1)) reader.line(row);
  if (sheet.lines.empty()) errors.push_back({0, "nothing was counted: every counted quantity is empty"});
  return sheet;
}

std::string errors_text(SheetErrors errors) {
  std::ranges::stable_sort(errors, {}, &SheetError::line);
  std::string text;
  for (const SheetError& error : errors)
    text += (text.empty() ? "" : "\n") +
            (error.line == 0 ? std::string("sheet: ") : "line " + std::to_string(error.line) + ": ") +
            error.text;
  return text;
}

}  // namespace tallyra::client
