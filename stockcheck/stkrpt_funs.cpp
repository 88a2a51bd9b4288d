#include "stockcheck/stkrpt_funs.h"

namespace tallyra::stockcheck {

CStkrptFuns::CStkrptFuns() : Session("") {}

automation::Object CStkrptFuns::GetCheckBalance([[maybe_unused]] std::string cSQL) {
  return {};
}

}  // namespace tallyra::stockcheck
