#include "client/platform/class_library.h"

namespace tallyra::client {

std::string class_library(const std::string&) {
  return "this program";
}

}  // namespace tallyra::client
