#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyra::client {

struct BarPiece {
  std::string style;  // class of the piece, which gives it its colour
  double value = 0;
  std::string hint;  // what is shown beside the pointer
};

// Pieces above nothing are stacked to the right, those below to the left.
struct Bar {
  std::string label;
  std::vector<BarPiece> pieces;
  std::string figure;  // what stands at the right edge
};

// Bars below each other as inline SVG, all on one scale. `name` finds the chart in the page; `title` is what
// it is called where it is read out.
std::string bar_chart(std::string_view name, std::string_view title, const std::vector<Bar>& bars);

}  // namespace tallyra::client
