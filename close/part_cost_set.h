#pragma once

#include <cstdint>
#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::close {

// Costing settings (PARTCOSTSET, by the serial number of a material type, MTYPESN). Methods return 100 for
// success and 0 for failure and tell the reason in the error fields. No right comes from owning a row.
class CPartCostSet : public frame::BusinessObject {
 public:
  CPartCostSet();

  // Puts new collections in place of the caller's. A missing setting is a success with ErrNumber 10000003 and
  // empty collections.
  float Read(std::int32_t& iMTypeSN, automation::Object& colFieldName, automation::Object& colFieldValue);
  // The tag decides only which right the user needs.
  float Update(std::int32_t iMTypeSN, automation::Object& colFieldName, automation::Object& colFieldValue,
               std::string& strOprTag);
  float Insert(std::int32_t iMTypeSN, automation::Object& colFieldName, automation::Object& colFieldValue);
  // A material type without setting is a success.
  float Delete(std::int32_t iMTypeSN);
};

}  // namespace tallyra::close
