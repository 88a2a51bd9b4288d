#include "client/output/text_table.h"

#include <algorithm>
#include <numeric>

#include "client/display_width.h"

namespace tallyra::client {
namespace {

constexpr std::size_t gap = 2;
constexpr std::string_view cut_mark = "…";

}  // namespace

void TextTable::add_row(const std::vector<std::string>& cells) {
  Row& row = rows_.emplace_back();
  for (const std::string_view cell : cells) {
    row.push_back(printable_lines(cell));
    const std::size_t column = row.size() - 1;
    if (column == widths_.size()) widths_.push_back(0);
    for (const auto& line : row.back()) widths_[column] = std::max(widths_[column], display_width(line));
  }
}

bool TextTable::fit(std::size_t width, Fit how) {
  constexpr std::size_t readable = 10;  // a date is never cut
  if (widths_.empty()) return true;
  std::vector<std::size_t> widths = widths_;
  std::size_t total = std::reduce(widths.begin(), widths.end()) + gap * (widths.size() - 1);
  for (; total > width; --total) {
    std::size_t widest = widths.size();
    for (std::size_t i = 0; i < widths.size(); ++i)
      if (!is_right(i) && widths[i] > readable && (widest == widths.size() || widths[i] > widths[widest]))
        widest = i;
    if (widest == widths.size()) return false;
    --widths[widest];
  }
  widths_.swap(widths);
  for (std::size_t i = 0; i < widths_.size(); ++i)
    if (widths_[i] < widths[i]) how == Fit::wrapping ? wrap(i) : shorten(i);
  return true;
}

void TextTable::shorten(std::size_t column) {
  for (Row& row : rows_) {
    if (column >= row.size()) continue;
    for (std::string& line : row[column])
      if (display_width(line) > widths_[column])
        line = std::string(cut_to_width(line, widths_[column] - 1)).append(cut_mark);
  }
}

void TextTable::wrap(std::size_t column) {
  for (Row& row : rows_) {
    if (column >= row.size()) continue;
    Cell lines;
    for (const std::string& line : row[column])
      for (std::string& piece : printable_lines(wrapped(line, widths_[column])))
        lines.push_back(std::move(piece));
    row[column] = std::move(lines);
  }
}

void TextTable::append(std::string& out, bool heading) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    append_row(out, rows_[i]);
    if (heading && i == 0) append_rule(out);
  }
}

void TextTable::append_row(std::string& out, const Row& row) const {
  std::size_t height = 0;
  for (const Cell& cell : row) height = std::max(height, cell.size());
  for (std::size_t line = 0; line < height; ++line) {
    std::size_t owed = 0;  // blanks before the next text; none are written behind the last one
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::string_view text = line < row[column].size() ? row[column][line] : std::string_view();
      const std::size_t room = widths_[column] - std::min(widths_[column], display_width(text));
      if (is_right(column)) owed += room;
      if (!text.empty()) {
        out.append(owed, ' ').append(text);
        owed = 0;
      }
      owed += gap + (is_right(column) ? 0 : room);
    }
    out += '\n';
  }
}

void TextTable::append_rule(std::string& out) const {
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    if (column != 0) out.append(gap, ' ');
    out.append(widths_[column], '-');
  }
  out += '\n';
}

}  // namespace tallyra::client
