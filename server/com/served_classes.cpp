#include "automation/com/served_module.h"
#include "automation/com/text.h"
#include "server/com/class_objects.h"

// The classes that the DLL offers, a list that scripts/generate.sh makes from their description in
// server/classes.
namespace tallyra::server::com {
namespace {

using automation::com::Pointer;
using automation::com::ServedClass;

template <class Object>
ServedClass served(std::string_view name, REFCLSID class_id, const wchar_t* description) {
  const auto make = [name, class_id] {
    return Pointer<IUnknown>::adopt(static_cast<IDispatch*>(new Object(name, class_id)));
  };
  return {class_id, L"Tallyra." + automation::com::to_utf16(name), description, make};
}

}  // namespace
}  // namespace tallyra::server::com

const tallyra::automation::com::ServedModule& tallyra::automation::com::served_module() {
  using namespace tallyra::server::com;
  static const ServedModule module{
      {
          // tallyra-describe: classes
          served<TranHeadObject>("CTranHead", CLSID_CTranHead, L"Tallyra stock transaction headers"),
          served<TranDetailObject>("CTranDetail", CLSID_CTranDetail, L"Tallyra stock transaction lines"),
          served<CheckHeadObject>("CCheckHead", CLSID_CCheckHead, L"Tallyra stock check headers"),
          served<CheckDetailObject>("CCheckDetail", CLSID_CCheckDetail, L"Tallyra stock check lines"),
          served<StkrptFunsObject>("CStkrptFuns", CLSID_CStkrptFuns, L"Tallyra stock reports"),
          served<PartCostSetObject>("CPartCostSet", CLSID_CPartCostSet, L"Tallyra costing settings"),
          served<StockCloseObject>("CStockClose", CLSID_CStockClose, L"Tallyra month-end stock close"),
          served<RevAddrObject>("CRevAddr", CLSID_CRevAddr, L"Tallyra receiving addresses"),
          served<STKControllerObject>("CSTKController", CLSID_CSTKController, L"Tallyra stock controllers"),
          served<StkShipNoteObject>("CStkShipNote", CLSID_CStkShipNote, L"Tallyra shipping notes"),
          // tallyra-describe: end
      },
      LIBID_Tallyra};
  return module;
}
