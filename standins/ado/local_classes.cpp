#include "standins/ado/local_classes.h"

#include "automation/local/local_classes.h"
#include "standins/ado/connection.h"
#include "standins/ado/recordset.h"

namespace tallyra::standins::ado {

void register_classes() {
  using automation::make_object;
  automation::local::register_class("ADODB.Connection", [] { return make_object<Connection>(); });
  automation::local::register_class("ADODB.Recordset", [] { return make_object<Recordset>(); });
}

}  // namespace tallyra::standins::ado
