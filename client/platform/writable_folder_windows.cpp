#include <filesystem>
#include <system_error>

#include "client/file_path.h"
#include "client/platform/writable_folder.h"

namespace tallyra::client {

bool folder_is_writable(const std::string& folder) {
  std::error_code ignored;
  return std::filesystem::is_directory(file_path(folder), ignored);
}

}  // namespace tallyra::client
