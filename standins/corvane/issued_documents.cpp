#include "standins/corvane/issued_documents.h"

#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/corvane/database.h"
#include "standins/corvane/failure.h"

namespace tallyra::standins::corvane {
namespace {

struct DocumentTable {
  std::string_view key_column;
  std::string_view table;
};

constexpr DocumentTable document_tables[] = {
    {"TRANNO", "STKTRANHD"},
    {"CHECKNO", "STKCHECKHD"},
};

}  // namespace

std::string_view document_table(std::string_view key_column) {
  for (const DocumentTable& entry : document_tables)
    if (automation::equals_folded(entry.key_column, key_column)) return entry.table;
  throw automation::Error(failure::bad_key_request,
                          "No document numbers are issued for a column \"" + std::string(key_column) + "\".");
}

std::int32_t highest_stored_counter(const automation::Object& connection, std::string_view key_column,
                                    const Series& series) {
  const std::string column(key_column);
  const std::string select = "Select Top 1 " + column + " From " + std::string(document_table(key_column)) +
                             " Where " + column + ">=" + quoted_text(series.number(0)) + " And " + column;
  const std::string order = " Order By " + column + " Desc";
  // Between two numbers of a series other texts may sort, such as one with a letter behind it: look below
  // those.
  std::string limit = series.number(series.last_counter());
  std::string_view comparison = "<=";
  std::int32_t highest = 0;
  for (;;) {
    std::string statement = select;
    statement += comparison;
    append_quoted(statement, limit);
    statement += order;
    const Query documents(connection, statement);
    if (documents.at_end()) break;
    limit = automation::to_text(documents.value(key_column));
    comparison = "<";
    documents.close();
    if (const auto counter = series.counter_of(limit)) {
      highest = *counter;
      break;
    }
  }
  return highest;
}

}  // namespace tallyra::standins::corvane
