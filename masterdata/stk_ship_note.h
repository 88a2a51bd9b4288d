#pragma once

#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::masterdata {

// Shipping notes, the feedback on a shipment (STKSHIPNOTE, by the TRANNO of the document). Results, error
// fields and the owner right are those of the receiving addresses; the right to insert is not.
class CStkShipNote : public frame::BusinessObject {
 public:
  CStkShipNote();

  float Read(std::string& cTRANNO, automation::Object& colFieldName, automation::Object& colFieldValue);
  // Only a note whose TRANTYPE is "STK030SHIPN" is asked for its owner.
  float Update(std::string cTRANNO, automation::Object& colFieldName, automation::Object& colFieldValue);
  // CanInsert has to be exactly 1. Runs in a transaction, which after an error goes with the connection.
  float Insert(std::string cTRANNO, automation::Object& colFieldName, automation::Object& colFieldValue);
  float Delete(std::string cTRANNO);
};

}  // namespace tallyra::masterdata
