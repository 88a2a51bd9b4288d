#include "client/classes.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"

namespace tallyra::client {

void make_classes_available() {
  server::register_classes();
  standins::ado::register_classes();
  standins::lexbank::register_classes();
  standins::corvane::register_classes();
}

}  // namespace tallyra::client
