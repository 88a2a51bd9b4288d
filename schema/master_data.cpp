#include "schema/subjects.h"

namespace tallyra::schema {

std::vector<Table> master_data() {
  constexpr std::string_view subject = "Master data of the component";
  return {
      {.name = "REVADDR",
       .subject = subject,
       .note = {},
       .columns = with_stamp({required(text("ADDRNO", 20)), text("ADDRNM", 60), text("STREET", 60),
                              text("CITY", 60), text("ZIPCODE", 20), text("COUNTRY", 60), text("CONTACT", 60),
                              text("TEL", 30), text("NOTES", 255)}),
       .key = {"ADDRNO"}},
      {.name = "STKCONTROLLER",
       .subject = subject,
       .note = {},
       .columns = with_stamp({required(text("CONTROLLERNO", 20)), text("CONTROLLERNM", 60), partner("DEPTNO"),
                              text("TEL", 30), text("EMAIL", 60), text("NOTES", 255)}),
       .key = {"CONTROLLERNO"}},
  };
}

}  // namespace tallyra::schema
