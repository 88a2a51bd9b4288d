#pragma once

#include "server/class_table.h"

// The description of each class, in the order of the type library.
namespace tallyra::server {

ClassTable tran_head();
ClassTable tran_detail();
ClassTable check_head();
ClassTable check_detail();
ClassTable stkrpt_funs();
ClassTable part_cost_set();
ClassTable stock_close();
ClassTable rev_addr();
ClassTable stk_controller();
ClassTable stk_ship_note();

}  // namespace tallyra::server
