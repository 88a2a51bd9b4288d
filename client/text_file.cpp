#include "client/text_file.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "client/file_path.h"
#include "client/usage_error.h"

namespace tallyra::client {

void require_readable(const std::string& path) {
  std::error_code error;
  const auto file = file_path(path);
  if (std::filesystem::is_directory(file, error)) throw UsageError("'" + path + "' is a directory, no file");
  if (!std::filesystem::exists(file, error)) throw UsageError("'" + path + "': no such file");
  if (!std::ifstream(file)) throw UsageError("'" + path + "' cannot be read");
}

std::string text_of_file(const std::string& path) {
  require_readable(path);
  std::ifstream in(file_path(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace tallyra::client
