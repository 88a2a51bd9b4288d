#include "server/classes/classes.h"

#include <vector>

namespace tallyra::server {

std::span<const ClassTable> classes() {
  static const std::vector<ClassTable> tables = [] {
    std::vector<ClassTable> list;
    for (const auto& describe : {tran_head, tran_detail, check_head, check_detail, stkrpt_funs, part_cost_set,
                                 stock_close, rev_addr, stk_controller, stk_ship_note})
      list.push_back(describe());
    return list;
  }();
  return tables;
}

}  // namespace tallyra::server
