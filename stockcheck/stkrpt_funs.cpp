#include "stockcheck/stkrpt_funs.h"

namespace tallyra::stockcheck {

CStkrptFuns::CStkrptFuns() : BusinessObject("") {}

automation::Object CStkrptFuns::GetCheckBalance([[maybe_unused]] std::string cSQL) {
  return {};
}

}  // namespace tallyra::stockcheck
