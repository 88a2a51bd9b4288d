#include "client/version.h"

namespace tallyra::client {

std::string version_text() {
  return "tallyra-client " TALLYRA_VERSION "\n";
}

}  // namespace tallyra::client
