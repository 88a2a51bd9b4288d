#include "client/month_end/findings/all_findings.h"

// What is in the documents of the period.
namespace tallyra::client {
namespace {

Found look_at_unapproved(const CloseCase& close) {
  return found_rows(close.reader,
                    "Select TRANNO,TRANTYPE,TRANDT From STKTRANHD"
                    " Where " +
                        std::string(no_close_documents) + " And (STATUSSN=0 Or STATUSSN Is Null)" +
                        within(close.reader, close.period) + " Order By TRANDT,TRANNO",
                    {"document", "type", "of"});
}

Found look_at_undated(const CloseCase& close) {
  return found_rows(close.reader,
                    "Select TRANNO,TRANTYPE From STKTRANHD Where TRANDT Is Null And " +
                        std::string(no_close_documents) + " Order By TRANNO",
                    {"document", "type"});
}

Found look_at_stock(const CloseCase& close) {
  return {static_cast<std::int64_t>(close.gathered.negative_count), close.gathered.negative};
}

Found look_at_quantities(const CloseCase& close) {
  return {static_cast<std::int64_t>(close.gathered.unknown_count), close.gathered.unknown};
}

Found look_at_stocktakings(const CloseCase& close) {
  return found_rows(close.reader,
                    "Select CHECKNO,DEPTNO,CHECKDT From STKCHECKHD Where (STATUSSN<>1 Or STATUSSN Is Null)"
                    " And CHECKDT>" +
                        close.reader.date_literal(close.period.after) + " And CHECKDT<=" +
                        close.reader.date_literal(close.period.until) + " Order By CHECKDT,CHECKNO",
                    {"stocktaking", "department", "of"});
}

}  // namespace

const Finding unapproved_documents{
    "unapproved-documents", Severity::warning,
    "documents of the period are not approved; the close counts them all the same, "
    "costs do not",
    "approve them, or delete what is not real", look_at_unapproved};
const Finding undated_documents{"undated-documents", Severity::warning,
                                "documents have no date: no close counts them",
                                "enter the date of each, or delete what is not real", look_at_undated};
const Finding negative_stock{"negative-stock", Severity::warning, "the close would write less than nothing",
                             "look for receipts that were not entered, or take stock", look_at_stock};
const Finding unknown_quantities{
    "unknown-quantities", Severity::error,
    "a part has no quantity in any of its lines of a department: the close would stop",
    "enter the quantities", look_at_quantities};
const Finding open_stocktakings{"open-stocktakings", Severity::warning,
                                "stocktakings of the period are entered and not approved",
                                "approve them before the close, with 'count approve'", look_at_stocktakings};

}  // namespace tallyra::client
