#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "frame/call.h"
#include "frame/owner.h"
#include "frame/writing.h"

namespace tallyra::frame {

// Changing rows; see frame/read_move.h.
struct UpdateMove {
  std::string table;
  std::string function_code;
  // The tags of status operations need a right of their own each, anything else is an edit and needs the
  // right to change rows.
  std::string operation_tag = {};
  // Lets owners edit; status operations ask for no owner.
  OwnerTest owner = {};
  Opening opening = Opening::always;
  // Runs with the connection open, before the structure is read.
  std::function<void()> before_structure = {};
  // Any rows of the table, for the types of its columns.
  struct Structure {
    Structure(std::string query, CursorType query_cursor = CursorType::forward_only,
              std::optional<CursorLocation> query_location = CursorLocation::server)
        : statement(std::move(query)), cursor(query_cursor), location(query_location) {}
    std::string statement;
    CursorType cursor;
    std::optional<CursorLocation> location;
  } structure;
  // What follows the builder's text.
  std::string condition;
  // An error counts from the finished statement on.
  Transaction transaction = Transaction::none;
  // Runs inside the transaction, after the update itself.
  std::function<void()> also = {};
};

void update_rows(Call& call, const FieldCollections& fields, const UpdateMove& move);

}  // namespace tallyra::frame
