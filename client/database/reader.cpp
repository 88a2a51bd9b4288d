#include "client/database/reader.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"

namespace tallyra::client {
namespace {

using automation::BoundMember;
using automation::Object;
using automation::Value;

constexpr std::int32_t forward_only = 0;
constexpr std::int32_t read_only = 1;
constexpr std::int32_t unspecified = -1;
constexpr std::int32_t server_side = 2;

// An open result is closed however its reading ends: it would hold up a writer.
class OpenRows {
 public:
  OpenRows(const std::string& query, const Object& connection)
      : rows_(automation::create("ADODB.Recordset")) {
    rows_.put("CursorLocation", server_side);
    rows_.call("Open", query, connection, forward_only, read_only, unspecified);
  }
  OpenRows(const OpenRows&) = delete;
  OpenRows& operator=(const OpenRows&) = delete;
  ~OpenRows() {
    try {
      rows_.call("Close");
    } catch (const automation::Error&) {
      // It is gone with its connection.
    }
  }
  const Object& object() const { return rows_; }

 private:
  Object rows_;
};

// Types of ADO.
bool is_numeric(std::int32_t type) {
  constexpr std::int32_t numeric[] = {2, 3, 4, 5, 6, 14, 16, 17, 18, 19, 20, 21, 131, 139};
  return std::ranges::find(numeric, type) != std::end(numeric);
}

struct NumberedColumn {
  std::string name;
  std::int32_t type;
  BoundMember value;
};

std::vector<NumberedColumn> columns_of(const Object& rows) {
  const Object fields = automation::to_object(rows.get("Fields"));
  const std::int32_t count = automation::to_int32(fields.get("Count"));
  std::vector<NumberedColumn> columns;
  for (std::int32_t i = 0; i < count; ++i) {
    const Object field = automation::to_object(fields.call("Item", i));
    columns.push_back({automation::to_text(field.get("Name")), automation::to_int32(field.get("Type")),
                       BoundMember(field, "Value")});
  }
  return columns;
}

}  // namespace

Reader::Reader(const std::string& connection_string, std::string kind)
    : connection_(automation::create("ADODB.Connection")), kind_(std::move(kind)) {
  connection_.put("CommandTimeout", 0);
  connection_.call("Open", connection_string, "", "", unspecified);
}

Reader::~Reader() {
  try {
    connection_.call("Close");
  } catch (const automation::Error&) {
    // A connection that was lost is closed.
  }
}

std::vector<std::string> Reader::walk(const std::string& query,
                                      const std::function<bool(const Row&)>& take) const {
  const OpenRows open(query, connection_);
  const std::vector<NumberedColumn> columns = columns_of(open.object());
  const BoundMember at_end(open.object(), "EOF");
  const BoundMember move_next(open.object(), "MoveNext");
  Row row(columns.size());
  while (!automation::to_boolean(at_end.get())) {
    for (std::size_t i = 0; i < columns.size(); ++i) row[i] = columns[i].value.get();
    if (!take(row)) break;
    move_next.call();
  }
  std::vector<std::string> names;
  names.reserve(columns.size());
  for (const NumberedColumn& column : columns) names.push_back(column.name);
  return names;
}

std::vector<std::string> Reader::each_row(const std::string& query,
                                          const std::function<void(const Row&)>& take) const {
  return walk(query, [&](const Row& row) {
    take(row);
    return true;
  });
}

Rows Reader::first_rows(const std::string& query, std::size_t most) const {
  Rows result;
  result.columns = walk(query, [&](const Row& row) {
    if (result.rows.size() < most) result.rows.push_back(row);
    return result.rows.size() < most;
  });
  return result;
}

Rows Reader::rows(const std::string& query) const {
  Rows result;
  result.columns = each_row(query, [&](const Row& row) { result.rows.push_back(row); });
  return result;
}

double Reader::number(const std::string& query) const {
  double result = 0;
  each_row(query, [&](const Row& row) {
    if (!row.empty() && !row.front().is_null()) result = automation::to_double(row.front());
  });
  return result;
}

std::int64_t Reader::count(const std::string& query) const {
  return std::llround(number(query));
}

bool Reader::has_table(std::string_view table) const {
  try {
    count("Select Count(*) As N From " + std::string(table));
    return true;
  } catch (const automation::Error&) {
    return false;
  }
}

std::vector<std::string> Reader::numeric_columns(const std::string& table, std::string_view key) const {
  const OpenRows open("Select * From " + table + " Where " + std::string(key) + " Is Null", connection_);
  std::vector<std::string> names;
  for (const NumberedColumn& column : columns_of(open.object()))
    if (is_numeric(column.type)) names.push_back(column.name);
  return names;
}

std::string Reader::property(const char* name) const {
  try {
    const Object properties = automation::to_object(connection_.get("Properties"));
    const Object found = automation::to_object(properties.call("Item", name));
    return automation::to_text(found.get("Value"));
  } catch (const automation::Error&) {
    return {};
  }
}

void Reader::execute(const std::string& statement) const {
  connection_.call("Execute", statement);
}

void Reader::begin() const {
  connection_.call("BeginTrans");
}

void Reader::commit() const {
  connection_.call("CommitTrans");
}

void Reader::roll_back() const noexcept {
  try {
    connection_.call("RollbackTrans");
  } catch (...) {
    // What was not committed goes with the connection.
  }
}

std::string Reader::text_literal(std::string_view text) {
  std::string literal = "'";
  for (const char c : text) literal.append(c == '\'' ? 2 : 1, c);
  return literal + "'";
}

std::string Reader::date_literal(automation::Date date) const {
  return time_literal({std::floor(date.serial)});
}

std::string Reader::time_literal(automation::Date date) const {
  const char quote = kind_ == "MSACCESS" ? '#' : '\'';
  return quote + automation::to_text(Value(date)) + quote;
}

}  // namespace tallyra::client
