#include "client/platform/database_path.h"
#include "client/usage_error.h"

namespace tallyra::client {

std::string driver_path(const std::string& path) {
  if (has_drive(path) || path.starts_with("\\\\"))
    throw UsageError("'" + path + "' is a Windows path; give the path that the file has here");
  return path;
}

}  // namespace tallyra::client
