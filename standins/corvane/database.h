#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/object.h"

// The few moves on ADO objects that this library makes. Every function throws Error as ADO raises it.
namespace tallyra::standins::corvane {

// An own connection. Letting the object go without "Close" discards an open transaction.
automation::Object open_connection(const std::string& connection_string);

// Runs a statement that gives no rows; returns how many rows it touched.
std::int32_t execute(const automation::Object& connection, std::string_view statement);

// The rows of a query, read once from the first to the last. Holds the connection as long as it lives.
class Query {
 public:
  Query(const automation::Object& connection, std::string_view statement);

  bool at_end() const;
  void move_next() const;
  automation::Value value(std::string_view column) const;
  void close() const;

 private:
  automation::Object recordset_;
  automation::Object fields_;
};

// The value as a number; a missing one (Null, Empty) counts as 0.
double number_or_zero(const automation::Value& value);

// A text between single quotes, the quotes inside doubled.
void append_quoted(std::string& out, std::string_view text);
std::string quoted_text(std::string_view text);

}  // namespace tallyra::standins::corvane
