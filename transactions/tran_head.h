#pragma once

#include <string>

#include "automation/object.h"
#include "automation/value.h"
#include "frame/business_object.h"

namespace tallyra::transactions {

// Headers of stock documents (STKTRANHD, by TRANNO). The document's type is the function whose rights count.
// Methods return 100 for success and 0 for failure and tell the reason in the error fields.
class CTranHead : public frame::BusinessObject {
 public:
  CTranHead();

  // Puts new collections in place of the caller's. A missing header is a success with ErrNumber 10000003 and
  // empty collections. A shipment also has the text of its shipping note, as FEEDBACK.
  float Read(std::string& cTRANNO, std::string& cTranType, automation::Object& colFieldName,
             automation::Object& colFieldValue);

  // Changes the columns of the collections. The tag decides which right the user needs, and only an ordinary
  // edit, one with any other tag, is open to the owner of the header.
  float Update(std::string cTRANNO, std::string& cTranType, automation::Object& colFieldName,
               automation::Object& colFieldValue, std::string& strOprTag);

  // Creates a header, with the lines of document pCopyID when that is not empty: all of it or nothing.
  float Insert(std::string cTRANNO, std::string& cTranType, automation::Object& colFieldName,
               automation::Object& colFieldValue, std::string& pCopyID);

  // Takes header, lines and shipping note away together. A number that does not exist is a success.
  float Delete(std::string cTRANNO, std::string& cTranType);

  // Whether a month close covers the date; see frame/closing_date_guard.h. A failing query counts as a closed
  // period. Throws Error as told there.
  automation::Value ValidCloseDT(automation::Value vTranDT);
};

}  // namespace tallyra::transactions
