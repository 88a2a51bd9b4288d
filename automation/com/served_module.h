#pragma once

#include <guiddef.h>
#include <unknwn.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/com/pointer.h"

// What a DLL offers to COM. Each DLL defines served_module; the entry points, the class objects and the
// registration come with this folder.
namespace tallyra::automation::com {

struct ServedClass {
  CLSID class_id;
  std::wstring prog_id;
  std::wstring description;
  // A new object. May throw Error.
  std::function<Pointer<IUnknown>()> make;
};

struct ServedModule {
  std::vector<ServedClass> classes;
  // Version 1.0 of a library that lies in the DLL as its first type library resource.
  std::optional<GUID> type_library = {};
};

// A class of this process (automation/local), offered under its ProgID.
ServedClass served_local_class(REFCLSID class_id, std::string_view prog_id, std::wstring description);

// Defined by the DLL. The same object every time.
const ServedModule& served_module();

}  // namespace tallyra::automation::com
