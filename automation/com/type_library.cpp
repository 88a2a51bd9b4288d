#include "automation/com/type_library.h"

#include "automation/com/failure.h"
#include "automation/com/module.h"

namespace tallyra::automation::com {

Pointer<ITypeInfo> type_info(REFGUID id) {
  Pointer<ITypeInfo> info;
  throw_if_failed(module_type_library()->GetTypeInfoOfGuid(id, info.out()));
  return info;
}

// Members without an id of their own have one that the system makes up; those begin here.
bool is_inherited(MEMBERID id) {
  return id >= 0x60000000;
}

bool declares(ITypeInfo& interface_info, MEMBERID id, unsigned invoke_kinds) {
  if (is_inherited(id)) return false;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(interface_info.GetFuncDesc(i, &function)); ++i) {
    const bool found = function->memid == id && (function->invkind & invoke_kinds) != 0;
    interface_info.ReleaseFuncDesc(function);
    if (found) return true;
  }
  return false;
}

}  // namespace tallyra::automation::com
