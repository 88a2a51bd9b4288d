#include "automation/com/com_object.h"
#include "automation/com/served_module.h"
#include "automation/com/text.h"
#include "automation/error.h"
#include "automation/local/local_classes.h"

namespace tallyra::automation::com {

ServedClass served_local_class(REFCLSID class_id, std::string_view prog_id, std::wstring description) {
  const auto make = [name = std::string(prog_id)] {
    const local::Factory factory = local::find_factory(name);
    if (!factory) throw Error(error_number::cannot_create);
    return Pointer<IUnknown>(ComObject::make(factory(), Role::callee).get());
  };
  return {class_id, to_utf16(prog_id), std::move(description), make};
}

}  // namespace tallyra::automation::com
