#include "masterdata/rev_addr.h"
#include "masterdata/stk_controller.h"
#include "masterdata/stk_ship_note.h"
#include "server/classes/classes.h"
#include "server/classes/common.h"

namespace tallyra::server {
namespace {

using masterdata::CRevAddr;
using masterdata::CSTKController;
using masterdata::CStkShipNote;

constexpr NamedParameter address{"cAddrNo", "Number of the address"};
constexpr NamedParameter controller{"cCONTROLLERNO", "Number of the controller"};

}  // namespace

ClassTable rev_addr() {
  return class_table<CRevAddr>(
      "CRevAddr",
      {.class_id = "02B95098-C7B8-46A7-B64E-40C55B958EE9",
       .interface_id = "893EFFD4-0C6A-4774-84EC-F0ABFF253B36",
       .help = "Receiving addresses",
       .registered_as = "receiving addresses",
       .purpose = "receiving addresses"},
      {
          method<&CRevAddr::Read>(11, "Read", "Reads a receiving address", {address, names_read, values_read},
                                  found),
          method<&CRevAddr::Update>(12, "Update", "Changes a receiving address",
                                    {address, names_written, values_written}, done),
          method<&CRevAddr::Insert>(13, "Insert", "Creates a receiving address",
                                    {address, names_written, values_written}, done),
          method<&CRevAddr::Delete>(14, "Delete", "Deletes a receiving address", {address}, done),
      });
}

ClassTable stk_controller() {
  return class_table<CSTKController>(
      "CSTKController",
      {.class_id = "A3ADEDAB-5C24-442A-8F6C-66F639F1B004",
       .interface_id = "2F3A7EDC-7B41-417D-A84A-B7A1F1D81E94",
       .help = "Stock controllers",
       .registered_as = "stock controllers",
       .purpose = "stock controllers"},
      {
          method<&CSTKController::Read>(11, "Read", "Reads a stock controller",
                                        {controller, names_read, values_read}, found),
          method<&CSTKController::Update>(12, "Update", "Changes a stock controller",
                                          {controller, names_written, values_written}, done),
          method<&CSTKController::Insert>(13, "Insert", "Creates a stock controller",
                                          {controller, names_written, values_written}, done),
          method<&CSTKController::Delete>(14, "Delete", "Deletes a stock controller", {controller}, done),
      });
}

ClassTable stk_ship_note() {
  return class_table<CStkShipNote>(
      "CStkShipNote",
      {.class_id = "94ADFCEA-17C9-4468-9669-474597D9F575",
       .interface_id = "6D26BDEE-4115-49F8-83B2-074163ED4B9A",
       .help = "Shipping notes",
       .registered_as = "shipping notes",
       .purpose = "shipping notes"},
      {
          method<&CStkShipNote::Read>(11, "Read", "Reads the shipping note of a document",
                                      {document, names_read, values_read}, found),
          method<&CStkShipNote::Update>(12, "Update", "Changes the shipping note of a document",
                                        {document, names_written, values_written}, done),
          method<&CStkShipNote::Insert>(13, "Insert", "Creates the shipping note of a document",
                                        {document, names_written, values_written}, done),
          method<&CStkShipNote::Delete>(14, "Delete", "Deletes the shipping note of a document", {document},
                                        done),
      });
}

}  // namespace tallyra::server
