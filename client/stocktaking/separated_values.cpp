#include "client/stocktaking/separated_values.h"

#include <algorithm>
#include <utility>

namespace tallyra::client {
namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

char separator_of(std::string_view text) {
  const std::size_t found = text.substr(0, text.find('\n')).find_first_of(",;\t");
  return found == std::string_view::npos ? ',' : text[found];
}

class RowReader {
 public:
  explicit RowReader(std::string_view text) : text_(text), separator_(separator_of(text)) {}

  std::vector<SeparatedRow> read() {
    while (at_ < text_.size()) take(text_[at_]);
    row_.open_quote = quoted_;
    end_row();
    return std::move(rows_);
  }

 private:
  void take(char c) {
    if (row_.line == 0) row_.line = line_;
    ++at_;
    if (c == '\n') ++line_;
    if (quoted_)
      take_quoted(c);
    else if (c == '"' && cell_.empty())
      quoted_ = true;
    else if (c == separator_)
      end_cell();
    else if (c == '\n')
      end_row();
    else if (c != '\r')
      cell_ += c;
  }

  void take_quoted(char c) {
    if (c != '"') {
      cell_ += c;
    } else if (at_ < text_.size() && text_[at_] == '"') {
      cell_ += c;
      ++at_;
    } else {
      quoted_ = false;
    }
  }

  void end_cell() { row_.cells.push_back(std::exchange(cell_, {})); }

  void end_row() {
    end_cell();
    const bool empty = std::ranges::all_of(row_.cells, &std::string::empty);
    if (!empty) rows_.push_back(std::move(row_));
    row_ = {};
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  bool quoted_ = false;
  std::string cell_;
  SeparatedRow row_;
  std::vector<SeparatedRow> rows_;
};

}  // namespace

std::vector<SeparatedRow> separated_rows(std::string_view text) {
  if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
  return RowReader(text).read();
}

}  // namespace tallyra::client
