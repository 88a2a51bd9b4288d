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

bool replace_file(const std::string& path, const std::string& text) {
  const std::filesystem::path file = file_path(path);
  std::filesystem::path unfinished = file;
  unfinished += ".unfinished";
  std::error_code error;
  // What is no file, such as a device or a pipe, cannot be replaced and is written to.
  const bool in_place =
      std::filesystem::exists(file, error) && !std::filesystem::is_regular_file(file, error);
  std::ofstream out(in_place ? file : unfinished, std::ios::binary);
  out << text;
  out.close();
  if (in_place) return !out.fail();
  if (out) std::filesystem::rename(unfinished, file, error);
  const bool done = out && !error;
  if (!done) std::filesystem::remove(unfinished, error);
  return done;
}

}  // namespace tallyra::client
