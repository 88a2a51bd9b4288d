#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "frame/call.h"

// The four moves by which most classes maintain one table. A class states its statements and where it departs
// from the pattern; whatever it leaves out is as the pattern has it, but for the right to insert. Each move
// runs inside run_method. The texts of a move stay as they are until it ends: in place of an argument by
// reference, which its owner may change meanwhile, a class gives a copy.
namespace tallyra::frame {

struct ReadMove {
  std::string_view statement;
  // A class either adds to the caller's collections, each field as it is read, or hands new ones back in
  // their place once everything is closed.
  enum class Fill { append, replace } fill = Fill::append;
  // The row count is made known by going to the end and back.
  bool count_rows = true;
};

// Reads the first row into the collections. A missing row is reported and is a success all the same. When
// anything fails, collections that are added to keep what they have got; those that would have been replaced
// are as they were. Of the caller's collections nothing but Add is called.
void read_row(Call& call, const FieldCollections& fields, const ReadMove& move);

struct InsertMove {
  std::string_view table;
  std::string_view function_code;
  // The rows with the key that is to be inserted.
  std::string_view existing;
  // What CanInsert must be. The pattern takes anything above zero, most classes want exactly one.
  enum class Grant { equal_to_one, above_zero } grant = Grant::equal_to_one;
  // Runs with the connection open, before the key is looked up.
  std::function<void(Call&)> before_existing = {};
  bool in_transaction = false;
  // Runs inside the transaction, after the insert itself.
  std::function<void(Call&)> also = {};
};

void insert_row(Call& call, const FieldCollections& fields, const InsertMove& move);

// How a user who may change only rows of their own is let through.
struct OwnerTest {
  // Reads the owner's name as ADDBY; without one there is no such way.
  std::string_view statement = {};
  CursorType cursor = CursorType::forward_only;
  std::optional<CursorLocation> location = {};
  // Which of the rows found tells the owner.
  enum class Row { last, first } row = Row::last;
  // What happens to the connection that the test leaves open. Opening it once more is an error of the
  // database layer, so in classes that do, a user with nothing but the owner right ends in the error trap;
  // clients know them so.
  enum class Then { open_again, open_if_closed } then = Then::open_again;
};

struct UpdateMove {
  std::string_view table;
  std::string_view function_code;
  // The tags of status operations need a right of their own each, anything else is an edit and needs the
  // right to change rows.
  std::string_view operation_tag = {};
  // Lets owners edit; status operations ask for no owner.
  OwnerTest owner = {};
  // Any rows of the table, for the types of its columns.
  std::string_view structure;
  CursorType structure_cursor = CursorType::forward_only;
  std::optional<CursorLocation> structure_location = CursorLocation::server;
  // What follows the builder's text.
  std::string_view condition;
  // Runs with the connection open, before the structure is read.
  std::function<void(Call&)> before_structure = {};
  bool in_transaction = false;
  // From the finished statement on, an error also rolls back and closes the connection.
  bool roll_back_on_error = false;
  // Runs inside the transaction, after the update itself.
  std::function<void(Call&)> also = {};
};

void update_rows(Call& call, const FieldCollections& fields, const UpdateMove& move);

struct DeleteMove {
  std::string_view function_code;
  OwnerTest owner = {};
  bool roll_back_on_error = true;
  std::initializer_list<std::string_view> statements;
};

// Deleting what does not exist is a success.
void delete_rows(Call& call, const DeleteMove& move);

}  // namespace tallyra::frame
