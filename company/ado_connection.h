#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "schema/script.h"

namespace tallyra::company {

// A connection of ADO to a database of any engine. Every function throws automation::Error as ADO raises it.
// A transaction that is open when it goes is discarded.
class AdoConnection {
 public:
  using Row = std::vector<automation::Value>;

  explicit AdoConnection(const std::string& connection_string);
  // Takes over an open connection.
  explicit AdoConnection(automation::Object connection) : connection_(std::move(connection)) {}

  void execute(std::string_view statement) const;
  std::vector<Row> rows(std::string_view query) const;
  // The one number that a query gives.
  double number(std::string_view query) const;
  // Upper case, whatever the engine gives.
  std::vector<std::string> columns_of(std::string_view table) const;
  // Tables, indexes and whatever else has a name in the database, in upper case.
  std::vector<std::string> relations() const;

  // Throws Refusal for an engine whose tables this program cannot look at.
  schema::Engine engine() const;

  void begin() const { connection_.call("BeginTrans"); }
  void commit() const { connection_.call("CommitTrans"); }

 private:
  automation::Object recordset(std::string_view query) const;

  automation::Object connection_;
};

}  // namespace tallyra::company
