#include "client/month_end/close_run.h"

#include "automation/clock.h"
#include "client/verbs/context.h"

namespace tallyra::client {

Call close_call(const CloseOrder& order) {
  const std::string day = day_text(order.date);
  const std::string user = order.session.user.value_or("");
  Call call{"Tallyra.CStockClose", "Insert", {day}, 1, {}};
  call.fields = {{"CLOSEDT", order.date},
                 {"STATUSSN", 0},
                 {"MAKEBY", user},
                 {"ADDBY", user},
                 {"ADDDT", automation::now()}};
  return call;
}

}  // namespace tallyra::client
