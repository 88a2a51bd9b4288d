#pragma once

#include <string>
#include <vector>

#include "automation/value.h"

// How the classes that keep one table by a key differ from each other. What is the same in all of them stands
// in the tests of this folder, what only one of them does in the folder of that class.
namespace tallyra::records {

// A query of a move and how its recordset is opened.
struct Query {
  std::string statement;
  enum Cursor { forward_only = 0, fixed = 3 } cursor;
  enum Location { server, as_it_is } location;
};

struct RecordClass {
  const char* class_name;
  const char* function_code;
  const char* table;
  // The key of every statement below.
  std::vector<automation::Value> keys;
  // The keys of Read, where it takes others than the members that write.
  std::vector<automation::Value> read_keys = {};
  // What other keys make of the statements stands with the tests of the class.
  bool other_keys_elsewhere = false;
  // Read takes its keys by reference in every class, some classes in the other members too.
  bool every_key_by_reference = false;
  // Update takes a tag as its last argument, which decides the right.
  enum Tag { no_tag, tag_may_be_left_out, tag_is_needed } update_tag = no_tag;

  std::string row_query;
  // Read adds to the caller's collections or puts new ones in their place.
  bool read_appends = false;
  bool read_counts_rows = true;

  // What has to be found before the key is looked up; empty when nothing has.
  std::string known_query = {};
  // Insert makes a row of the collections under a key that is free. A month close's is a run of its own.
  bool inserts = true;
  std::string key_query = {};
  bool insert_wants_one = true;
  bool insert_in_transaction = true;

  Query structure;
  // What follows the text of the builder.
  std::string condition;
  bool update_in_transaction = false;
  // What the update changes beside the row.
  std::vector<std::string> also_updated = {};

  // A user with nothing but the owner right is let in by these; without a statement nobody is.
  Query update_owner = {};
  Query delete_owner = {};
  // The connection is opened without a look at its state: behind an owner test that is an error, while the
  // other classes go on over what it has opened.
  bool opens_again = false;

  std::vector<std::string> removals;
  bool delete_rolls_back = true;

  bool has_owner() const { return !update_owner.statement.empty(); }
};

// In the form of a kind of database.
std::vector<RecordClass> record_classes(const std::string& kind);

}  // namespace tallyra::records
