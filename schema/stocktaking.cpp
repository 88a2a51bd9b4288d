#include "schema/subjects.h"

namespace tallyra::schema {

std::vector<Table> stocktaking() {
  constexpr std::string_view subject = "Stocktaking";
  return {
      {.name = "STKCHECKHD",
       .subject = subject,
       .note = {},
       .columns = with_stamp({required(text("CHECKNO", 20)), compared(date("CHECKDT")), partner("DEPTNO"),
                              text("CHECKBY", 50), text("STATUS", 20), from_zero(integer("STATUSSN")),
                              text("STATUSBY", 50), date("STATUSDT"), text("NOTES", 255)}),
       .key = {"CHECKNO"}},
      {.name = "STKCHECKDT",
       .subject = subject,
       .note = {},
       .columns = with_stamp({required(text("CHECKNO", 20)), required(text("PARTNO", 40)), number("QTY"),
                              number("UPRICE"), text("LOCATION", 20), text("NOTES", 255)}),
       .key = {"CHECKNO", "PARTNO"}},
  };
}

}  // namespace tallyra::schema
