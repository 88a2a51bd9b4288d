#pragma once

#include <string_view>

#include "frame/record_maintenance.h"

namespace tallyra::transactions {

// The owner test of stock documents: its recordset is like any other of theirs, and the connection it has
// opened goes on being used, so that an owner's change succeeds. `statement` has to outlive the result.
inline frame::OwnerTest owner_test(std::string_view statement) {
  return {.statement = statement,
          .cursor = frame::CursorType::static_copy,
          .location = frame::CursorLocation::server,
          .then = frame::OwnerTest::Then::open_if_closed};
}

}  // namespace tallyra::transactions
