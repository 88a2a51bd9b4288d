#include "client/posting_check.h"

#include "automation/folded_name.h"
#include "client/own_connection.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

bool approves_stocktaking(const Call& call) {
  return automation::equals_folded(call.prog_id, "Tallyra.CCheckHead") &&
         automation::equals_folded(call.member, "Update") && !call.arguments.empty() &&
         shown_text(call.arguments.back()) == "APPROVED";
}

// The collections do not match, and the user lacks the right: the class looks at both before it begins.
bool is_refusal(double error_number) {
  return error_number == 10000002 || error_number == 10000016;
}

std::int32_t headers_without_number(const std::string& connection_string) {
  return OwnConnection(connection_string)
      .count("Select Count(*) As N From STKTRANHD Where TRANTYPE='STKCHECKISS' And TRANNO=''");
}

}  // namespace

bool may_have_posted(const Call& call, const Outcome& outcome) {
  return approves_stocktaking(call) && !outcome.raised && !is_refusal(outcome.error_number.value_or(0));
}

std::string posting_complaint(const Session& session) try {
  if (!session.connection_string) return {};
  const std::int32_t headers = headers_without_number(*session.connection_string);
  if (headers == 0) return {};
  return "a posting without a number stands in the database: " + std::to_string(headers) +
         (headers == 1 ? " header" : " headers") +
         " of type STKCHECKISS with an empty TRANNO."
         " Every line without a number counts with each such header."
         " Once numbers are issued again, un-approve all stocktakings that the REFERENCE of such headers"
         " names, then approve each of them again";
} catch (const automation::Error& error) {
  return "whether a posting without a number stands in the database could not be asked: error " +
         std::to_string(error.number()).append(": ").append(error.description());
}

}  // namespace tallyra::client
