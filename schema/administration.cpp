#include "schema/subjects.h"

namespace tallyra::schema {
namespace {

constexpr std::string_view of_administration = "Rights, document numbers, version";

Table rights() {
  std::vector<Column> columns = {required(text("USERID", 50)), required(text("FUNCCODE", 30))};
  for (const std::string_view right : {"CANINSERT", "CANUPDATE", "CANDELETE", "CANAPPROVED", "CANUNAPPROVED",
                                       "CANCANCEL", "CANFINISHED", "OWNER"})
    columns.push_back(from_zero(integer(right)));
  return {.name = "USERRIGHTS",
          .subject = of_administration,
          .note = {},
          .columns = columns,
          .key = {"USERID", "FUNCCODE"}};
}

}  // namespace

std::vector<Table> administration() {
  return {
      rights(),
      {.name = number_table,
       .subject = of_administration,
       .note = {},
       .columns = {required(text("SERIES", 40)), required(integer("LASTNO"))},
       .key = {"SERIES"}},
      {.name = version_table,
       .subject = of_administration,
       .note = "One row: which version of this description the tables have.",
       .columns = {required(integer(version_column))}},
  };
}

}  // namespace tallyra::schema
