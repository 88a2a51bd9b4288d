#include "automation/com/object_passage.h"

#include "automation/collection.h"
#include "automation/com/collection_object.h"
#include "automation/com/com_object.h"
#include "automation/com/com_proxy.h"
#include "automation/com/incoming_calls.h"

namespace tallyra::automation::com {

Pointer<IDispatch> dispatch_of(const Object& object, Role role) {
  if (!object) return {};
  if (const auto* proxy = dynamic_cast<const ComProxy*>(object.dispatch())) return proxy->target();
  if (dynamic_cast<const Collection*>(object.dispatch())) return CollectionObject::make(object, role);
  return ComObject::make(object, role);
}

Object object_of(IDispatch* dispatch, Role role) {
  if (!dispatch) return {};
  if (const Object own = IncomingCalls::object_behind(*dispatch, role)) return own;
  return make_object<ComProxy>(Pointer<IDispatch>(dispatch));
}

}  // namespace tallyra::automation::com
