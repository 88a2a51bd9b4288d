#pragma once

#include <utility>

#include "frame/call.h"

// What the moves that write have in common, and where classes differ in it.
namespace tallyra::frame {

// How the connection is opened for a user who may write. One who may only because the row is his own comes
// with the connection that the owner test has opened.
enum class Opening {
  // In any case. For the owner that is error 3705 of the database layer; clients know these classes so.
  always,
  // Unless its State says that it is open: an owner's change succeeds.
  if_closed,
};

enum class Transaction {
  none,
  // After an error it is left to the connection, which is let go.
  left_on_error,
  // After an error it is rolled back and the connection closed.
  rolled_back_on_error,
};

inline void open_for_writing(Call& call, Opening opening) {
  if (opening == Opening::always || !call.connection.is_open()) call.open_connection();
}

// From here on an error also ends the transaction, if the move says so.
inline void arm(Call& call, Transaction transaction) {
  if (transaction == Transaction::rolled_back_on_error) call.roll_back_on_error();
}

// Executes the statements of a move, the last that it does.
template <class Statements>
void write(Call& call, Transaction transaction, Statements&& execute) {
  if (transaction != Transaction::none) call.connection.begin();
  std::forward<Statements>(execute)();
  if (transaction != Transaction::none) call.connection.commit();
  call.connection.close();
}

}  // namespace tallyra::frame
