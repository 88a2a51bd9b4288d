#pragma once

#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::stockcheck {

// Reports on stock. A new object has no kind of database yet, as CCheckHead.
class CStkrptFuns : public frame::BusinessObject {
 public:
  CStkrptFuns();

  // The place of a balance report over stocktakings, as a recordset. There is none: the result is always no
  // object, whatever the statement, and the error fields stay as they are.
  automation::Object GetCheckBalance(std::string cSQL);
};

}  // namespace tallyra::stockcheck
