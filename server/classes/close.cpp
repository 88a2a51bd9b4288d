#include "close/part_cost_set.h"
#include "close/stock_close.h"
#include "server/classes/classes.h"
#include "server/classes/common.h"

namespace tallyra::server {
namespace {

using close::CPartCostSet;
using close::CStockClose;

constexpr NamedParameter material_type{"iMTypeSN", "Material type"};
constexpr NamedParameter close_date{"pCloseDT", "Close date YYYY/MM/DD"};
constexpr NamedParameter close_document{"cCloseID", "Number of the close document"};
constexpr NamedParameter close_date_literal{"cCloseDT", "Close date as a complete literal of the database"};

}  // namespace

ClassTable part_cost_set() {
  return class_table<CPartCostSet>(
      "CPartCostSet",
      {.class_id = "745B77C8-9C6E-465B-9674-6C44BC0455C9",
       .interface_id = "68120F85-5EAB-4088-B4A0-1F9FBD1A80E5",
       .help = "Costing settings per material type",
       .registered_as = "costing settings",
       .purpose = "how parts of a material type are costed"},
      {
          method<&CPartCostSet::Read>(11, "Read", "Reads the costing setting of a material type",
                                      {material_type, names_read, values_read}, found),
          method<&CPartCostSet::Update>(
              12, "Update", "Changes the costing setting of a material type",
              {material_type, names_written, values_written, {"strOprTag", tag_help, ""}}, done),
          method<&CPartCostSet::Insert>(13, "Insert", "Creates the costing setting of a material type",
                                        {material_type, names_written, values_written}, done),
          method<&CPartCostSet::Delete>(14, "Delete", "Deletes the costing setting of a material type",
                                        {material_type}, done),
      });
}

ClassTable stock_close() {
  return class_table<CStockClose>(
      "CStockClose",
      {.class_id = "4B1738E2-0BBA-407F-B9BF-EB1D52A2EFDB",
       .interface_id = "31E60E63-0930-4739-8AD3-BE46E4F9AC43",
       .help = "Month-end stock close",
       .registered_as = "month-end stock close",
       .purpose = "month-end close",
       .event_interface = "__CStockClose"},
      {
          method<&CStockClose::Read>(11, "Read", "Reads the record of a month close",
                                     {close_date, names_read, values_read}, found),
          method<&CStockClose::Update>(
              12, "Update",
              "Changes the record of a month close and approves its documents and all earlier records",
              {close_date, names_written, values_written, tag}, done),
          method<&CStockClose::Insert>(
              13, "Insert",
              "Runs a month close: documents per department and for the company, then its record",
              {close_date, names_written, values_written}, done),
          method<&CStockClose::Delete>(14, "Delete", "Deletes the record of a month close and its documents",
                                       {close_date}, done),
          method<&CStockClose::STKMonthCloseDept>(
              15, "STKMonthCloseDept", "Step of Insert: closes one department",
              {close_document, close_date_literal, {"cDeptNo", "Number of the department"}}, done),
          method<&CStockClose::STKMonthClose>(16, "STKMonthClose", "Step of Insert: closes the company",
                                              {close_document, close_date_literal}, done),
      });
}

}  // namespace tallyra::server
