#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyra::client {

// Text between or in the quotes of tags.
std::string escaped(std::string_view text);

struct HtmlCell {
  std::string text;
  std::string number = {};  // what stands in data-value of a number; empty for a text
};

struct HtmlColumn {
  std::string_view heading;
  bool is_number = false;
};

// A table of a page.
class HtmlTable {
 public:
  // `name` finds it in the page.
  HtmlTable(std::string_view name, std::vector<HtmlColumn> columns)
      : name_(name), columns_(std::move(columns)) {}

  void add_row(const std::vector<HtmlCell>& cells) { rows_ += row_text(cells, ""); }
  // One that stands out as the sum of those above it.
  void add_sum(const std::vector<HtmlCell>& cells) { rows_ += row_text(cells, " class=\"sum\""); }

  std::string text() const;

 private:
  std::string row_text(const std::vector<HtmlCell>& cells, std::string_view attributes) const;

  std::string name_;
  std::vector<HtmlColumn> columns_;
  std::string rows_;
};

}  // namespace tallyra::client
