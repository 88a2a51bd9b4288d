#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "frame/call.h"

namespace tallyra::frame {

// How a user who may change only rows of their own is let through. The test opens the connection and leaves
// it open.
struct OwnerTest {
  // Nobody is let through for owning a row.
  OwnerTest() = default;
  // The statement reads the owner's name as ADDBY.
  explicit OwnerTest(std::string owner_query, CursorType owner_cursor = CursorType::forward_only)
      : statement(std::move(owner_query)), cursor(owner_cursor) {}

  std::string statement;
  CursorType cursor = CursorType::forward_only;
  std::optional<CursorLocation> location;
  // Which of the rows found tells the owner.
  enum class Row { last, first } row = Row::last;
  // A row that does not exist is everybody's. Whether its recordset is closed all the same.
  enum class MissingRow { left_open, closed } missing_row = MissingRow::left_open;
};

// The test of classes in which an owner's change succeeds, with Opening::if_closed: its recordset is closed,
// found or not. Documents and stocktakings ask so.
OwnerTest closed_owner_test(std::string owner_query, CursorType cursor = CursorType::static_copy,
                            std::optional<CursorLocation> location = {});

// Refuses a user who neither has the right nor passes the test.
void require_right_or_owner(Call& call, std::string_view right, const OwnerTest& test);

}  // namespace tallyra::frame
