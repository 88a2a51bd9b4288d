#pragma once

#include "client/month_end/finding.h"

// Every finding; each is defined in the file of this folder that has its subject.
namespace tallyra::client {

extern const Finding not_month_end;
extern const Finding in_future;
extern const Finding before_a_close;
extern const Finding month_left_out;
extern const Finding previous_unapproved;
extern const Finding another_closer;
extern const Finding unknown_departments;
extern const Finding unknown_parts;
extern const Finding unknown_quantities;
extern const Finding part_order;
extern const Finding trailing_blanks;
extern const Finding unfinished_close;
extern const Finding unapproved_documents;
extern const Finding undated_documents;
extern const Finding negative_stock;
extern const Finding no_cost;
extern const Finding no_material_type;
extern const Finding open_stocktakings;
extern const Finding refused_query;

}  // namespace tallyra::client
