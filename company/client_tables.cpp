#include "company/client_tables.h"

namespace tallyra::company {
namespace {

schema::Column text(std::string_view name, int length) {
  return {.name = name, .kind = schema::Kind::text, .length = length};
}

schema::Column integer(std::string_view name) {
  return {.name = name, .kind = schema::Kind::integer};
}

}  // namespace

const schema::Table& client_journal_table() {
  static const schema::Table table{
      .name = "TALLYRAJOURNAL",
      .subject = {},
      .note = {},
      .columns = {{.name = "SEQNO", .kind = schema::Kind::integer, .nullable = false},
                  text("DONEAT", 19),
                  text("ACTION", 40),
                  text("SUBJECT", 100),
                  text("RESULT", 20),
                  text("DETAIL", 255),
                  text("USERID", 50),
                  text("OSUSER", 100),
                  text("HOSTNAME", 255),
                  integer("PROCESSID")}};
  return table;
}

}  // namespace tallyra::company
