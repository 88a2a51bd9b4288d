#include <unistd.h>

#include "client/platform/writable_folder.h"

namespace tallyra::client {

bool folder_is_writable(const std::string& folder) {
  return access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace tallyra::client
