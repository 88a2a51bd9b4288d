#include "client/report/bar_chart.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "client/display_width.h"
#include "client/report/html.h"

namespace tallyra::client {
namespace {

constexpr double width = 760;
constexpr double label_width = 200;
constexpr double figure_width = 120;
constexpr double gap = 10;
constexpr double room = width - label_width - figure_width - 2 * gap;
constexpr double row_height = 28;
constexpr double bar_height = 16;
constexpr double baseline = 18;  // of the texts of a row, from its top
constexpr std::size_t label_columns = 25;

// A place in the drawing: a tenth of a unit is finer than a pixel.
std::string place(double number) {
  char digits[64];
  const auto written = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 1);
  return {digits, written.ptr};
}

std::string attribute(std::string_view name, double number) {
  return " " + std::string(name) + "=\"" + place(number) + "\"";
}

std::string shortened(const std::string& label) {
  if (display_width(label) <= label_columns) return label;
  return std::string(cut_to_width(label, label_columns - 1)) + "…";
}

struct Scale {
  double least = 0;
  double most = 0;

  explicit Scale(const std::vector<Bar>& bars) {
    for (const Bar& bar : bars) {
      double below = 0;
      double above = 0;
      for (const BarPiece& piece : bar.pieces) (piece.value < 0 ? below : above) += piece.value;
      least = std::min(least, below);
      most = std::max(most, above);
    }
  }
  double length(double value) const {
    const double range = most - least;
    return range > 0 ? std::fabs(value) / range * room : 0;
  }
  double zero() const { return label_width + gap + length(least); }
};

std::string rectangle(const BarPiece& piece, double x, double y, double length) {
  return "<rect class=\"" + piece.style + "\"" + attribute("x", x) + attribute("y", y) +
         attribute("width", length) + attribute("height", bar_height) + "><title>" + escaped(piece.hint) +
         "</title></rect>";
}

std::string row(const Bar& bar, double top, const Scale& scale) {
  std::string text = "<text class=\"label\"" + attribute("x", label_width) + attribute("y", top + baseline) +
                     ">" + escaped(shortened(bar.label)) + "<title>" + escaped(bar.label) + "</title></text>";
  double right = scale.zero();
  double left = right;
  for (const BarPiece& piece : bar.pieces) {
    const double length = scale.length(piece.value);
    if (piece.value < 0) left -= length;
    text += rectangle(piece, piece.value < 0 ? left : right, top + (row_height - bar_height) / 2, length);
    if (piece.value > 0) right += length;
  }
  return text + "<text class=\"figure\"" + attribute("x", width) + attribute("y", top + baseline) + ">" +
         escaped(bar.figure) + "</text>\n";
}

}  // namespace

std::string bar_chart(std::string_view name, std::string_view title, const std::vector<Bar>& bars) {
  const Scale scale(bars);
  const double height = row_height * static_cast<double>(bars.size());
  std::string text = "<svg id=\"" + std::string(name) + "\" viewBox=\"0 0 " + place(width) + " " +
                     place(height) + R"(" role="img" aria-label=")" + escaped(title) + "\">\n";
  double top = 0;
  for (const Bar& bar : bars) {
    text += row(bar, top, scale);
    top += row_height;
  }
  return text + "<line class=\"axis\"" + attribute("x1", scale.zero()) + attribute("x2", scale.zero()) +
         attribute("y1", 0) + attribute("y2", height) + "/></svg>\n";
}

}  // namespace tallyra::client
