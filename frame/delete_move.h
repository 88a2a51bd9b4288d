#pragma once

#include <string>
#include <vector>

#include "frame/call.h"
#include "frame/owner.h"
#include "frame/writing.h"

namespace tallyra::frame {

// Deleting rows, in one transaction; see frame/read_move.h.
struct DeleteMove {
  std::string function_code;
  OwnerTest owner = {};
  Opening opening = Opening::always;
  Transaction transaction = Transaction::rolled_back_on_error;
  std::vector<std::string> statements;
};

// Deleting what does not exist is a success.
void delete_rows(Call& call, const DeleteMove& move);

}  // namespace tallyra::frame
