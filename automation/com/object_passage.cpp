#include "automation/com/object_passage.h"

#include "automation/com/com_object.h"
#include "automation/com/com_proxy.h"

namespace tallyra::automation::com {

Pointer<IDispatch> dispatch_of(const Object& object, Role role) {
  if (!object) return {};
  if (const auto* proxy = dynamic_cast<const ComProxy*>(object.dispatch())) return proxy->target();
  return ComObject::make(object, role);
}

Object object_of(IDispatch* dispatch, Role role) {
  if (!dispatch) return {};
  if (const Object own = ComObject::unwrap(*dispatch, role)) return own;
  return make_object<ComProxy>(Pointer<IDispatch>(dispatch));
}

}  // namespace tallyra::automation::com
