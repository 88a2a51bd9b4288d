#include "automation/create.h"

#include <objbase.h>

#include "automation/com/com_object.h"
#include "automation/com/com_proxy.h"
#include "automation/com/failure.h"
#include "automation/com/text.h"
#include "automation/error.h"
#include "automation/local/local_classes.h"

namespace tallyra::automation {
namespace {

using com::ComObject;
using com::ComProxy;
using com::Pointer;

Pointer<IDispatch> create_registered(std::string_view prog_id) {
  CLSID class_id;
  Pointer<IDispatch> object;
  com::throw_if_failed(CLSIDFromProgID(com::to_utf16(prog_id).c_str(), &class_id));
  const HRESULT code = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                        IID_IDispatch, object.out_void());
  // A thread without an apartment has no class but those of this program.
  if (code == CO_E_NOTINITIALIZED) throw Error(error_number::cannot_create);
  com::throw_if_failed(code);
  return object;
}

}  // namespace

// Classes of this program come first. They too are called over COM, so that they cannot tell whether the
// caller lives in another module.
Object create(std::string_view prog_id) {
  if (const local::Factory factory = local::find_factory(prog_id)) {
    const Object object = factory();
    return object ? make_object<ComProxy>(ComObject::make(object, com::Role::callee)) : Object();
  }
  return make_object<ComProxy>(create_registered(prog_id));
}

}  // namespace tallyra::automation
