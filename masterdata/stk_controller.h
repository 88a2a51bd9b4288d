#pragma once

#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::masterdata {

// Stock controllers, the users who look after stock (STKCONTROLLER, by CONTROLLERNO). Results, error fields
// and the owner right are those of the receiving addresses.
class CSTKController : public frame::BusinessObject {
 public:
  CSTKController();

  float Read(std::string& cCONTROLLERNO, automation::Object& colFieldName, automation::Object& colFieldValue);
  float Update(std::string& cCONTROLLERNO, automation::Object& colFieldName,
               automation::Object& colFieldValue);
  float Insert(std::string& cCONTROLLERNO, automation::Object& colFieldName,
               automation::Object& colFieldValue);
  float Delete(std::string& cCONTROLLERNO);
};

}  // namespace tallyra::masterdata
