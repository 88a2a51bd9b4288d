#pragma once

#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::masterdata {

// Receiving addresses (REVADDR, by AddrNo). Every method returns 100 for success and 0 for failure and tells
// the reason in the error fields; Read of a missing row is a success with ErrNumber 10000003. A user who has
// only the owner right cannot update or delete: the error trap reports that the connection is already open.
class CRevAddr : public frame::BusinessObject {
 public:
  CRevAddr();

  float Read(std::string& cAddrNo, automation::Object& colFieldName, automation::Object& colFieldValue);
  float Update(std::string& cAddrNo, automation::Object& colFieldName, automation::Object& colFieldValue);
  float Insert(std::string& cAddrNo, automation::Object& colFieldName, automation::Object& colFieldValue);
  float Delete(std::string& cAddrNo);
};

}  // namespace tallyra::masterdata
