#include "client/report/html.h"

namespace tallyra::client {
namespace {

// Control characters have no place in a page.
std::string_view escape_of(char c) {
  switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return static_cast<unsigned char>(c) < ' ' ? " " : "";
  }
}

}  // namespace

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const std::string_view escape = escape_of(c);
    if (escape.empty())
      result += c;
    else
      result += escape;
  }
  return result;
}

std::string HtmlTable::text() const {
  std::string text = R"(<div class="scroll"><table id=")" + name_ + "\"><thead><tr>";
  for (const HtmlColumn& column : columns_)
    text.append(column.is_number ? R"(<th class="number" scope="col">)" : R"(<th scope="col">)")
        .append(escaped(column.heading))
        .append("</th>");
  return text + "</tr></thead>\n<tbody>\n" + rows_ + "</tbody></table></div>\n";
}

std::string HtmlTable::row_text(const std::vector<HtmlCell>& cells, std::string_view attributes) const {
  std::string text = "<tr" + std::string(attributes) + ">";
  for (std::size_t i = 0; i < cells.size(); ++i) {
    text += columns_[i].is_number ? "<td class=\"number\"" : "<td";
    if (!cells[i].number.empty()) text.append(" data-value=\"").append(cells[i].number).append("\"");
    text.append(">").append(escaped(cells[i].text)).append("</td>");
  }
  return text + "</tr>\n";
}

}  // namespace tallyra::client
