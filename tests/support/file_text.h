#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace tallyra::tests {

// All that stands in a file, byte for byte; nothing for one that cannot be read.
inline std::string file_text(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace tallyra::tests
