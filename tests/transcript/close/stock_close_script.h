#pragma once

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

namespace tallyra {

// A company with two departments on a stage, ready to close March 2024 after a close of February. Parts that
// only go out, only come in, or do both, before, between and behind each other.
class MonthCloseStage {
 public:
  explicit MonthCloseStage(const std::string& system_database = "MSACCESS");

  stage::Outcome close(const automation::Value& date = "2024/03/31");

  std::string outgoing_query(const std::string& department) const;
  std::string incoming_query(const std::string& department) const;
  // Everything that a run for Access has asked from the last line on that a close without a failure asks too.
  std::string way_out() const;
  // Nothing has moved in this period, and there is no close of its last day yet.
  void knows_period(const std::string& after, const std::string& until, const std::string& document_date);
  // The date between the quotes of the kind.
  std::string literal(const std::string& date) const { return quote + date + quote; }

  std::string quote;
  stage::Stage stage;
  stage::Fields fields{{"CLOSEDT", "2024/03/31"}, {"STATUSSN", 0}};
  automation::Object client;
};

// A line of the transcript: how the steps open a query.
inline std::string opened(const std::string& recordset, const std::string& query,
                          const std::string& connection) {
  return recordset + ".Open " + query + " | " + connection + " 3 1 -1\n";
}

}  // namespace tallyra
