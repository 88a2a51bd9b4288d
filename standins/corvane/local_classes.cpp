#include "standins/corvane/local_classes.h"

#include "automation/local/local_classes.h"
#include "standins/corvane/power_check.h"
#include "standins/corvane/system_services.h"

namespace tallyra::standins::corvane {

void register_classes() {
  using automation::make_object;
  automation::local::register_class("Corvane.CPowerCheck", [] { return make_object<PowerCheck>(); });
  automation::local::register_class("Corvane.CSystem", [] { return make_object<SystemServices>(); });
}

}  // namespace tallyra::standins::corvane
