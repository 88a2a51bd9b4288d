#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <stdexcept>

#include "server/describe/region.h"

// Writes what is made from the description of the classes into the files of the project. With --check it
// writes nothing and ends with 1 when a file is not as it would be written.
namespace {

using tallyra::server::describe::Region;

std::string content_of(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::string content((std::istreambuf_iterator<char>(in)), {});
  if (!in) throw std::runtime_error(path.string() + " cannot be read");
  return content;
}

void write(const std::filesystem::path& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  if (!(out << content).flush()) throw std::runtime_error(path.string() + " cannot be written");
}

// How many files are not, or were not, as they have to be.
int bring_up_to_date(const std::filesystem::path& folder, bool only_check) {
  std::map<std::string, std::string> files;
  for (const Region& region : tallyra::server::describe::regions(tallyra::server::classes())) {
    const auto [file, is_new] = files.try_emplace(region.path);
    if (is_new) file->second = content_of(folder / region.path);
    file->second = with_region(std::move(file->second), region);
  }
  int stale = 0;
  for (const auto& [path, content] : files) {
    if (content == content_of(folder / path)) continue;
    ++stale;
    std::cout << path << (only_check ? " is not what server/classes makes of it\n" : " is written anew\n");
    if (!only_check) write(folder / path, content);
  }
  return stale;
}

}  // namespace

int main(int count, char** arguments) {
  const bool only_check = count == 3 && std::string_view(arguments[1]) == "--check";
  if (count != 2 && !only_check) {
    std::cerr << "usage: tallyra-describe [--check] FOLDER_OF_THE_PROJECT\n";
    return 2;
  }
  try {
    const int stale = bring_up_to_date(arguments[count - 1], only_check);
    if (stale == 0 || !only_check) return 0;
    std::cout << "Run scripts/generate.sh\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
