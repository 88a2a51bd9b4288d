#pragma once

#include <cstdint>
#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

namespace tallyra::transactions {

// Lines of stock documents (STKTRANDT). A line is addressed within document and reference by its number when
// that is 0 or more, else by its part: then every line of that part is meant. Methods with a single-precision
// result return 100 for success and 0 for failure; the reason of a failure stands in the error fields.
class CTranDetail : public frame::BusinessObject {
 public:
  CTranDetail();

  // Puts new collections in place of the caller's: the line with the description of its part. A missing line,
  // or one whose part is unknown, is a success with ErrNumber 10000003 and empty collections.
  float Read(std::string& cTRANNO, std::string& cReference, std::string& cPartNo,
             automation::Object& colFieldName, automation::Object& colFieldValue, std::int32_t& intSN);

  // A purchase return line addressed by number fails: the database refuses the condition, and clients know
  // its answer.
  float Update(std::string& cTRANNO, std::string& cTranType, std::string& cReference, std::string& cPartNo,
               automation::Object& colFieldName, automation::Object& colFieldValue, std::int32_t& intSN);

  // The new line is the one in the collections; the address only has to be free.
  float Insert(std::string& cTRANNO, std::string& cTranType, std::string& cReference, std::string& cPartNo,
               automation::Object& colFieldName, automation::Object& colFieldValue, std::int32_t& intSN);

  // The other lines keep their numbers. A line that does not exist is a success.
  float Delete(std::string& cTRANNO, std::string& cTranType, std::string& cReference, std::string& cPartNo,
               std::int32_t& intSN);

  // Inserts a purchase return line under a number; a line that has it, and all above, move up by one in the
  // same transaction. Unless iRTNType is 0, the part must have been received from the return's supplier.
  float InsertRTN(std::string cTRANNO, std::int16_t& intSN, automation::Object& colFieldName,
                  automation::Object& colFieldValue, std::int16_t& iRTNType);

  // Changes the purchase return line with that number, whatever its reference.
  float UpdateRTN(std::string cTRANNO, std::int16_t& intSN, automation::Object& colFieldName,
                  automation::Object& colFieldValue);

  // The quantity ordered, and those received and returned against it, of one line of a purchase order (type
  // "PO") or, negated, of another stock document. 100 or 0; outputs found before a failure stay.
  double PORefQty(std::string& cReference, std::int32_t& intSN, double& nPOQty, double& nRevQty,
                  double& nRtnQty, std::string& cType);

  // 1 for a purchase order, 2 for a purchase return, else 0; 0 also on an error.
  std::int16_t POExam(std::string cOrderNO);

  // "SO" for a sales order, "MO" for a production order, else empty; empty also on an error.
  std::string OrderTypeExam(std::string cOrderNO);

  // How much of a part other documents than cTRANNO have issued to an order, less what they took back; only
  // one of the two with a type of that kind as cType. 0 on an error, which leaves no trace in the error
  // fields.
  double IssuedOrRtnQty(std::string cTRANNO, std::string& cMONO, std::string& cPartNo, std::string& cTranType,
                        std::string& cType);

  // How much of a part an order requires: a production order by its own list, a sales order by its bill of
  // materials, which is followed through all assemblies. 0 with ErrNumber 10000024 when it requires none, and
  // with 28 when an assembly contains itself.
  double GetMRPQty(std::string cMONO, std::string& cPartNo, std::string& cTranType);
};

}  // namespace tallyra::transactions
