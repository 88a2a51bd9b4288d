#include "samples/client/classes.h"
#include "server/register.h"
#include "standins/ado/register.h"
#include "standins/corvane/register.h"
#include "standins/lexbank/register.h"

namespace tallyra::client {

void make_classes_available() {
  server::register_classes();
  standins::ado::register_classes();
  standins::lexbank::register_classes();
  standins::corvane::register_classes();
}

}  // namespace tallyra::client
