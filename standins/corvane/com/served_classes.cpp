#include "automation/com/served_module.h"
#include "standins/corvane/local_classes.h"

namespace tallyra::automation::com {

const ServedModule& served_module() {
  static const ServedModule module = [] {
    standins::corvane::register_classes();
    return ServedModule{{
        served_local_class({0x0A417581, 0xA98B, 0x4DF7, {0x9E, 0xBE, 0x75, 0x9B, 0x7A, 0x49, 0x5F, 0x53}},
                           "Corvane.CPowerCheck", L"Rights and building of statements"),
        served_local_class({0x5DD2AD52, 0x7CFC, 0x45D7, {0xA9, 0x6C, 0x4B, 0xD3, 0x46, 0xC5, 0x17, 0x29}},
                           "Corvane.CSystem", L"Document numbers and part costs"),
    }};
  }();
  return module;
}

}  // namespace tallyra::automation::com
