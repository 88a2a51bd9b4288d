#include "server/classes/classes.h"
#include "server/classes/common.h"
#include "stockcheck/check_detail.h"
#include "stockcheck/check_head.h"
#include "stockcheck/stkrpt_funs.h"

namespace tallyra::server {
namespace {

using stockcheck::CCheckDetail;
using stockcheck::CCheckHead;
using stockcheck::CStkrptFuns;

constexpr NamedParameter stocktaking{"cCHECKNO", "Number of the stocktaking"};

}  // namespace

ClassTable check_head() {
  return class_table<CCheckHead>(
      "CCheckHead",
      {.class_id = "D75EBA6D-3A4C-48EE-925F-E0B95B78DE4E",
       .interface_id = "90B35196-A888-4F8B-A8C9-FAEB1C00D122",
       .help = "Stock check headers",
       .registered_as = "stock check headers",
       .purpose = "stocktakings and their posting"},
      {
          method<&CCheckHead::Read>(11, "Read", "Reads the header of a stocktaking",
                                    {stocktaking, names_read, values_read}, found),
          method<&CCheckHead::Update>(
              12, "Update",
              "Changes the header of a stocktaking; APPROVED posts what differs, UNAPPROVED unposts it",
              {stocktaking, names_written, values_written, tag}, done),
          method<&CCheckHead::Insert>(13, "Insert", "Creates the header of a stocktaking",
                                      {stocktaking, names_written, values_written}, done),
          method<&CCheckHead::Delete>(14, "Delete",
                                      "Deletes a stocktaking with its lines; what was posted stays",
                                      {stocktaking}, done),
          closing_date_guard<&CCheckHead::ValidCloseDT>(),
      });
}

ClassTable check_detail() {
  return class_table<CCheckDetail>(
      "CCheckDetail",
      {.class_id = "B1243299-3821-4EF1-A33F-5F7F16EA772A",
       .interface_id = "D7A5ACE9-D653-4B50-AB7D-DB33434B9AD7",
       .help = "Stock check lines",
       .registered_as = "stock check lines",
       .purpose = "lines of stocktakings"},
      {
          method<&CCheckDetail::Read>(11, "Read", "Reads a counted line of a stocktaking",
                                      {stocktaking, part, names_read, values_read}, found),
          method<&CCheckDetail::Update>(12, "Update", "Changes a counted line of a stocktaking",
                                        {stocktaking, part, names_written, values_written}, done),
          method<&CCheckDetail::Insert>(13, "Insert", "Creates a counted line of a stocktaking",
                                        {stocktaking, part, names_written, values_written}, done),
          method<&CCheckDetail::Delete>(14, "Delete", "Deletes a counted line of a stocktaking",
                                        {stocktaking, part}, done),
      });
}

ClassTable stkrpt_funs() {
  return class_table<CStkrptFuns>(
      "CStkrptFuns",
      {.class_id = "2EDA8D9D-74B2-4FD9-A720-9B4632986A82",
       .interface_id = "91E4D7F0-618A-4E05-B0CF-62E2D18B899E",
       .help = "Stock reports",
       .registered_as = "stock reports",
       .purpose = "check balance report"},
      {
          method<&CStkrptFuns::GetCheckBalance>(15, "GetCheckBalance",
                                                "The place of a balance report: runs nothing",
                                                {{"cSQL", "Not used"}}, "Always nothing"),
      });
}

}  // namespace tallyra::server
