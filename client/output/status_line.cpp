#include "client/output/status_line.h"

#include <ostream>

#include "client/display_width.h"

namespace tallyra::client {

void StatusLine::show(std::string_view text) {
  if (text == shown_) return;
  draw(cut_to_width(text, room_));
  shown_ = text;
}

void StatusLine::clear() {
  if (shown_.empty()) return;
  draw({});
  stream_ << '\r' << std::flush;
  shown_.clear();
}

void StatusLine::draw(std::string_view text) {
  const std::size_t width = display_width(text);
  stream_ << '\r' << text << std::string(drawn_width_ > width ? drawn_width_ - width : 0, ' ') << std::flush;
  drawn_width_ = width;
}

}  // namespace tallyra::client
