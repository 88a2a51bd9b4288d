#include "schema/subjects.h"

namespace tallyra::schema {

std::vector<Table> closing_and_costing() {
  constexpr std::string_view subject = "Month close and costing";
  return {
      {.name = "STKCLOSEHD",
       .subject = subject,
       .note = {},
       .columns = with_stamp({required(compared(date("CLOSEDT"))), text("STATUS", 20),
                              from_zero(integer("STATUSSN")), text("STATUSBY", 50), date("STATUSDT"),
                              text("MAKEBY", 50), text("NOTES", 255)}),
       .key = {"CLOSEDT"}},
      {.name = "PARTCOSTSET",
       .subject = subject,
       .note = "A missing MTYPESN is an error and not a number made up by the engine.",
       .columns =
           with_stamp({required(integer("MTYPESN")), text("MTYPENM", 60), from_zero(integer("COSTMETHOD")),
                       from_zero(number("OVERHEADRATE")), text("STATUS", 20), from_zero(integer("STATUSSN")),
                       text("STATUSBY", 50), date("STATUSDT"), text("NOTES", 255)}),
       .key = {"MTYPESN"},
       .stored_by_key = true},
  };
}

}  // namespace tallyra::schema
