#include "samples/client/posting_check.h"

#include "automation/folded_name.h"
#include "samples/client/own_connection.h"
#include "samples/client/value_text.h"

namespace tallyra::client {

bool approves_stocktaking(const Call& call) {
  return automation::equals_folded(call.prog_id, "Tallyra.CCheckHead") &&
         automation::equals_folded(call.member, "Update") && !call.arguments.empty() &&
         shown_text(call.arguments.back()) == "APPROVED";
}

std::string posting_complaint(const Session& session) {
  if (!session.connection_string) return {};
  const OwnConnection connection(*session.connection_string);
  const std::int32_t headers =
      connection.count("Select Count(*) As N From STKTRANHD Where TRANTYPE='STKCHECKISS' And TRANNO=''");
  if (headers == 0) return {};
  return "no document number could be issued: " + std::to_string(headers) +
         (headers == 1 ? " header" : " headers") +
         " of type STKCHECKISS stored without one (TRANNO is empty), and every line without a number counts "
         "with "
         "each of them. Once numbers are issued again, un-approve all stocktakings that the REFERENCE of "
         "these "
         "headers names, then approve each of them again";
}

}  // namespace tallyra::client
