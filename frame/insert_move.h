#pragma once

#include <functional>
#include <string>

#include "frame/call.h"
#include "frame/writing.h"

namespace tallyra::frame {

// Inserting a row; see frame/read_move.h.
struct InsertMove {
  std::string table;
  std::string function_code;
  // The rows with the key that is to be inserted.
  std::string existing;
  // What CanInsert must be. The pattern takes anything above zero, most classes want exactly one.
  enum class Grant { equal_to_one, above_zero } grant = Grant::equal_to_one;
  // Runs with the connection open, before the key is looked up.
  std::function<void()> before_existing = {};
  Transaction transaction = Transaction::none;
  // Runs inside the transaction, after the insert itself.
  std::function<void()> also = {};
};

void insert_row(Call& call, const FieldCollections& fields, const InsertMove& move);

}  // namespace tallyra::frame
