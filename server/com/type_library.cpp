#include "server/com/type_library.h"

#include <oleauto.h>

#include "automation/com/failure.h"
#include "automation/com/module.h"

namespace tallyra::server::com {

using automation::com::Pointer;
using automation::com::throw_if_failed;

Pointer<ITypeInfo> type_info(REFGUID id) {
  Pointer<ITypeLib> library;
  throw_if_failed(LoadTypeLibEx(automation::com::module_path().c_str(), REGKIND_NONE, library.out()));
  Pointer<ITypeInfo> info;
  throw_if_failed(library->GetTypeInfoOfGuid(id, info.out()));
  return info;
}

bool declares(ITypeInfo& interface_info, MEMBERID id, unsigned invoke_kinds) {
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(interface_info.GetFuncDesc(i, &function)); ++i) {
    const bool found = function->memid == id && (function->invkind & invoke_kinds) != 0;
    interface_info.ReleaseFuncDesc(function);
    if (found) return true;
  }
  return false;
}

}  // namespace tallyra::server::com
