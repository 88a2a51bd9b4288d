#include "standins/lexbank/local_classes.h"

#include "automation/local/local_classes.h"
#include "standins/lexbank/err_msg.h"
#include "standins/lexbank/part_f.h"

namespace tallyra::standins::lexbank {

void register_classes() {
  automation::local::register_class("Lexbank.ErrMsg", [] { return automation::make_object<ErrMsg>(); });
  automation::local::register_class("Lexbank.CPartF", [] { return automation::make_object<PartF>(); });
}

}  // namespace tallyra::standins::lexbank
