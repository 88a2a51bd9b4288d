#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace tallyra::client {

// One line that is drawn over and over. It stays one column short of the edge, where terminals wrap.
class StatusLine {
 public:
  StatusLine(std::ostream& stream, std::size_t width) : stream_(stream), room_(width > 1 ? width - 1 : 1) {}

  void show(std::string_view text);
  void clear();

 private:
  void draw(std::string_view text);

  std::ostream& stream_;
  std::size_t room_;
  std::size_t drawn_width_ = 0;
  std::string shown_;
};

}  // namespace tallyra::client
