#include "frame/delete_move.h"

namespace tallyra::frame {

void delete_rows(Call& call, const DeleteMove& move) {
  call.power_check(move.function_code);
  require_right_or_owner(call, "CanDelete", move.owner);

  open_for_writing(call, move.opening);
  arm(call, move.transaction);
  write(call, move.transaction, [&] {
    for (const std::string& statement : move.statements) call.connection.execute(statement);
  });
}

}  // namespace tallyra::frame
