#include "automation/com/served_module.h"
#include "standins/ado/local_classes.h"

namespace tallyra::automation::com {

// Identifiers of its own: an installed ADO keeps its classes, and its ProgIDs too unless the registration is
// told to replace them.
const ServedModule& served_module() {
  static const ServedModule module = [] {
    standins::ado::register_classes();
    return ServedModule{{
        served_local_class({0xB0BEA7A1, 0xB7A4, 0x4F6D, {0xB4, 0x59, 0x9B, 0xAB, 0x75, 0x8E, 0x03, 0x42}},
                           "ADODB.Connection", L"Connection over ODBC"),
        served_local_class({0xA006FC93, 0x4800, 0x4FEA, {0xA4, 0x9B, 0xF1, 0xB3, 0x9F, 0xA6, 0x26, 0xDC}},
                           "ADODB.Recordset", L"Recordset over ODBC"),
    }};
  }();
  return module;
}

}  // namespace tallyra::automation::com
