#pragma once

#include <string_view>
#include <vector>

// The tables of a company database, described once for all engines: what they are called, what their columns
// hold and how they are found. The create scripts are written from this, databases are brought up to it and
// copied by it. Texts live as long as the program.
namespace tallyra::schema {

// The version that a database has when it has everything below. It stands in the table TALLYRASCHEMA; the
// databases from before that table are version 1. Whoever changes the description raises it.
inline constexpr int version = 2;
inline constexpr std::string_view version_table = "TALLYRASCHEMA";
inline constexpr std::string_view version_column = "VERSION";

// Counters of the issued document numbers.
inline constexpr std::string_view number_table = "TABLEKEYS";

enum class Kind { text, number, integer, date };

struct Column {
  std::string_view name;
  Kind kind = Kind::text;
  int length = 0;  // of a text, in characters
  // Whether 'A' and 'A ' are two values: in comparisons, joins, groups and keys.
  bool trailing_blanks_count = true;
  bool nullable = true;
  std::string_view initial = {};  // the number that a new row has unless told otherwise; empty: none
  // A date that statements compare: the engine refuses what is no date, or none that a client can hold.
  bool compared = false;
};

struct Index {
  std::string_view name;
  std::vector<std::string_view> columns;
  bool unique = false;
  // A text column; rows in which it is empty are not in the index. Empty: all rows are.
  std::string_view unless_empty = {};
  // What SQLite's planner is told: rows of the table, rows per value of the first column, of the first two,
  // ... in a typical company. Empty: nothing.
  std::string_view sqlite_statistics = {};
};

struct Table {
  std::string_view name;
  std::string_view subject;  // heading under which scripts list it
  std::string_view note;     // what a reader of a script should know; may be empty
  std::vector<Column> columns;
  std::vector<std::string_view> key = {};  // the primary key; a table may have none
  std::vector<Index> indexes = {};
  // Rows lie in the order of the key, where the engine lets one say so.
  bool stored_by_key = false;
};

// In the order in which scripts create them; those of a subject stand together.
const std::vector<Table>& tables();

}  // namespace tallyra::schema
