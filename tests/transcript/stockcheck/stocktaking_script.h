#pragma once

#include <string>
#include <vector>

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

namespace tallyra::stockcheck_test {

// A line of the counted sheet.
struct Counted {
  const char* part;
  automation::Value quantity;
  automation::Value price = 2.5;
  const char* department_name = "Store";
};

// Stocktaking S1 of department 10 on 31 March 2024, on a stage that has closed February.
class StocktakingStage {
 public:
  explicit StocktakingStage(const std::string& system_database = "MSACCESS");

  // The lines of the sheet, in the order of their parts, of which none has moved in the period.
  StocktakingStage& sheet(const std::vector<Counted>& lines,
                          const automation::Value& check_date = automation::Date{45382});
  // The sums of what went out and of what was transferred in.
  StocktakingStage& moved(const std::string& part, automation::Value out, automation::Value in);
  stage::Outcome approve();

  // The date between the quotes of the kind.
  std::string literal(const std::string& date) const { return quote + date + quote; }
  std::string close_query(const std::string& check_date = "2024/03/31") const;
  std::string outgoing_query(const std::string& part) const;
  std::string incoming_query(const std::string& part) const;
  // What follows the text in the first line of the transcript that has it; empty when none has.
  std::string after(const std::string& text) const;
  // How many lines of the transcript have the text.
  int count(const std::string& text) const;

  std::string quote;
  std::string period_begin = "2024/02/29";
  std::string period_end = "2024/03/31";
  stage::Stage stage;
  stage::Fields fields{{"STATUSSN", 1}};
  automation::Object client;
};

// The approval of a stocktaking with lines: all is stored, and the second commit finds no transaction.
inline const stage::Outcome posted = stage::trapped(-2147168242, "No transaction is active.");

}  // namespace tallyra::stockcheck_test
