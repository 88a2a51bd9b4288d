#pragma once

#include <string>

#include "automation/object.h"
#include "automation/value.h"
#include "frame/business_object.h"

namespace tallyra::stockcheck {

// Headers of stocktakings (STKCHECKHD, by CHECKNO). Methods return 100 for success and 0 for failure and tell
// the reason in the error fields. A new object has no kind of database yet and writes dates between "'".
class CCheckHead : public frame::BusinessObject {
 public:
  CCheckHead();

  // Puts new collections in place of the caller's. A missing header is a success with ErrNumber 10000003 and
  // empty collections.
  float Read(std::string& cCHECKNO, automation::Object& colFieldName, automation::Object& colFieldValue);

  // Changes the columns of the collections. The tag decides which right the user needs, and only an ordinary
  // edit, one with any other tag, is open to the owner of the header. "APPROVED" also posts the counted
  // differences, "UNAPPROVED" also takes every posting of the stocktaking away; nobody asks whether it is
  // approved already.
  //
  // The posting of a stocktaking that has lines commits by itself, so the commit of this method finds no
  // transaction. ADO reports that as an error: the result is 0 with error -2147168242, narrowed to what
  // ErrNumber holds, and everything is stored all the same.
  float Update(std::string cCHECKNO, automation::Object& colFieldName, automation::Object& colFieldValue,
               std::string& strOprTag);

  float Insert(std::string cCHECKNO, automation::Object& colFieldName, automation::Object& colFieldValue);

  // Takes header and lines away together and leaves postings where they are. A number that does not exist is
  // a success.
  float Delete(std::string cCHECKNO);

  // Whether a month close covers the date; see frame/closing_date_guard.h. Uses the message library as
  // another method on this thread has set it up.
  automation::Value ValidCloseDT(automation::Value vTranDT);
};

}  // namespace tallyra::stockcheck
