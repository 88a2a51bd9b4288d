#include "bench/document.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tallyra::bench {

std::string with_figures(const std::string& document, const std::string& figures) {
  const std::size_t begin = document.find(figures_begin);
  const std::size_t end = document.find(figures_end, begin == std::string::npos ? 0 : begin);
  if (begin == std::string::npos || end == std::string::npos)
    throw std::runtime_error("the document has no lines that mark where the figures stand");
  return document.substr(0, begin + std::strlen(figures_begin)) + "\n" + figures + "\n" +
         document.substr(end);
}

void write_figures(const std::string& path, const std::string& figures) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  const std::string document{std::istreambuf_iterator<char>(in), {}};
  const std::string changed = with_figures(document, figures);
  const std::string beside = path + ".new";
  std::ofstream out(beside, std::ios::binary);
  out << changed;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + beside);
  std::filesystem::rename(beside, path);
}

}  // namespace tallyra::bench
