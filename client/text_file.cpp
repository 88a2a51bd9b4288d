#include "client/text_file.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "client/file_path.h"
#include "client/usage_error.h"

namespace tallyra::client {

std::string text_of_file(const std::string& path) {
  std::error_code error;
  const auto file = file_path(path);
  if (std::filesystem::is_directory(file, error)) throw UsageError("'" + path + "' is a directory, no file");
  if (!std::filesystem::exists(file, error)) throw UsageError("'" + path + "': no such file");
  std::ifstream in(file, std::ios::binary);
  if (!in) throw UsageError("'" + path + "' cannot be read");
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace tallyra::client
