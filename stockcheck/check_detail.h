#pragma once

#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::stockcheck {

// Counted lines of stocktakings (STKCHECKDT, by CHECKNO and PARTNO). Rights and ownership are those of the
// header. Methods return 100 for success and 0 for failure and tell the reason in the error fields. Lines of
// an approved stocktaking can be changed as well; the next approval sees them.
class CCheckDetail : public frame::BusinessObject {
 public:
  CCheckDetail();

  // Puts new collections in place of the caller's: the line, then PARTNM, COLORNO, COLORNM and UNITNM of its
  // part. A missing line, or one whose part is missing, is a success with ErrNumber 10000003 and empty
  // collections.
  float Read(std::string& cCHECKNO, std::string& cPartNo, automation::Object& colFieldName,
             automation::Object& colFieldValue);
  float Update(std::string& cCHECKNO, std::string& cPartNo, automation::Object& colFieldName,
               automation::Object& colFieldValue);
  // A part that does not exist is refused with 10000025.
  float Insert(std::string& cCHECKNO, std::string& cPartNo, automation::Object& colFieldName,
               automation::Object& colFieldValue);
  // A line that does not exist is a success.
  float Delete(std::string& cCHECKNO, std::string& cPartNo);
};

}  // namespace tallyra::stockcheck
