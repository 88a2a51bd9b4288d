#include "automation/com/served_module.h"
#include "standins/lexbank/local_classes.h"

namespace tallyra::automation::com {

const ServedModule& served_module() {
  static const ServedModule module = [] {
    standins::lexbank::register_classes();
    return ServedModule{{
        served_local_class({0xADE3052F, 0xBF82, 0x4092, {0x83, 0x47, 0x70, 0x47, 0x1D, 0xB3, 0x3E, 0x84}},
                           "Lexbank.ErrMsg", L"Message texts"),
        served_local_class({0xE4A91F7D, 0xCBEB, 0x4809, {0xAB, 0xAA, 0x11, 0x41, 0xF7, 0xBF, 0x14, 0x30}},
                           "Lexbank.CPartF", L"Words of generated rows"),
    }};
  }();
  return module;
}

}  // namespace tallyra::automation::com
