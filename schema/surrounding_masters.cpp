#include "schema/subjects.h"

namespace tallyra::schema {

std::vector<Table> surrounding_masters() {
  constexpr std::string_view subject = "The surrounding ERP, read only: master data";
  return {
      {.name = "DEPARTS",
       .subject = subject,
       .note = {},
       .columns = {required(partner("DEPTNO")), text("DEPTNM", 60), text("MANAGER", 50), text("NOTES", 255)},
       .key = {"DEPTNO"}},
      {.name = "PARTS",
       .subject = subject,
       .note = {},
       .columns = with_stamp({required(text("PARTNO", 40)), text("PARTNM", 60), text("CATEGORYNO", 20),
                              text("COLORNO", 20), text("COLORNM", 30), text("UNITNM", 20),
                              integer("MTYPESN"), integer("PRICETYPESN")}),
       .key = {"PARTNO"}},
      {.name = "SUPPLIERS",
       .subject = subject,
       .note = "The supplier number bears the table's own name, because documents are joined with \"... "
               "=SUPPLIERS\".",
       .columns = {required(partner("SUPPLIERS")), text("SUPPLIERNM", 60), text("CITY", 60),
                   text("COUNTRY", 60), text("TEL", 30)},
       .key = {"SUPPLIERS"}},
      {.name = "ASSMBOM",
       .subject = subject,
       .note = {},
       .columns = {required(text("ASSMNO", 40)), required(integer("SN")), required(text("PARTNO", 40)),
                   from_zero(number("ENGQTY")), from_one(number("URATE")), from_zero(number("WSRATE"))},
       .key = {"ASSMNO", "SN"},
       .stored_by_key = true},
  };
}

}  // namespace tallyra::schema
