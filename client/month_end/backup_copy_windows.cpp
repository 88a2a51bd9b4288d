#include "client/month_end/backup_copy.h"

namespace tallyra::client {

bool copy_open_database(const std::string&, const std::string&) {
  return false;
}

}  // namespace tallyra::client
