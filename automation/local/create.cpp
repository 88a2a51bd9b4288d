#include "automation/create.h"

#include "automation/error.h"
#include "automation/local/local_classes.h"

namespace tallyra::automation {

Object create(std::string_view prog_id) {
  const local::Factory factory = local::find_factory(prog_id);
  if (!factory) throw Error(error_number::cannot_create);
  return factory();
}

}  // namespace tallyra::automation
