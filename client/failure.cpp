#include "client/failure.h"

#include <cstdint>
#include <ostream>

#include "client/database/connection_text.h"

namespace tallyra::client {
namespace {

constexpr std::int32_t no_such_table = -2147217865;

}  // namespace

void tell_failure(const automation::Error& error, const Console& console) {
  console.error << "tallyra-client: the call failed with error " << error.number() << ": "
                << without_passwords(error.description()) << "\n";
  if (error.number() == no_such_table)
    console.error << "'doctor' tells what the database lacks; 'init' makes the tables of an empty one\n";
}

}  // namespace tallyra::client
