#pragma once

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "server/com/class_objects.h"

namespace tallyra::tests::com {

using automation::com::ComObject;
using automation::com::Pointer;

inline Pointer<_CTranDetail> new_detail() {
  return Pointer<_CTranDetail>::adopt(new server::com::TranDetailObject("CTranDetail", CLSID_CTranDetail));
}
inline Pointer<_CTranHead> new_head() {
  return Pointer<_CTranHead>::adopt(new server::com::TranHeadObject("CTranHead", CLSID_CTranHead));
}
inline Pointer<_CStkrptFuns> new_reports() {
  return Pointer<_CStkrptFuns>::adopt(new server::com::StkrptFunsObject("CStkrptFuns", CLSID_CStkrptFuns));
}
inline Pointer<_CStockClose> new_close() {
  return Pointer<_CStockClose>::adopt(new server::com::StockCloseObject("CStockClose", CLSID_CStockClose));
}

inline Pointer<IDispatch> client_collection() {
  return ComObject::make(automation::make_object<automation::Collection>(), automation::com::Role::caller);
}

}  // namespace tallyra::tests::com
