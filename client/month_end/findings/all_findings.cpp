#include "client/month_end/findings/all_findings.h"

namespace tallyra::client {
namespace {

const Finding* const findings_in_order[] = {
    &not_month_end,   &in_future,           &before_a_close,       &month_left_out,     &previous_unapproved,
    &another_closer,  &unknown_departments, &unknown_parts,        &unknown_quantities, &part_order,
    &trailing_blanks, &unfinished_close,    &unapproved_documents, &undated_documents,  &negative_stock,
    &no_cost,         &no_material_type,    &open_stocktakings,    &refused_query,
};

}  // namespace

std::span<const Finding* const> findings() {
  return findings_in_order;
}

}  // namespace tallyra::client
