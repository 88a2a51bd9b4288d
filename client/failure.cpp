#include "client/failure.h"

#include <ostream>

namespace tallyra::client {

void tell_failure(const automation::Error& error, const Console& console) {
  console.error << "tallyra-client: the call failed with error " << error.number() << ": "
                << error.description() << "\n";
}

}  // namespace tallyra::client
