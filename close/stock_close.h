#pragma once

#include <string>

#include "automation/object.h"
#include "automation/value.h"
#include "frame/business_object.h"

namespace tallyra::close {

class DocumentNumbers;

// The month-end stock close: its records (STKCLOSEHD, by CLOSEDT), the run over all departments and the
// company, and the two steps of the run. Every method returns 100 for success and 0 for failure and tells the
// reason in the error fields.
class CStockClose : public frame::BusinessObject {
 public:
  CStockClose();

  // The record of a close date. A missing one is a success with ErrNumber 10000003.
  float Read(std::string pCloseDT, automation::Object& colFieldName, automation::Object& colFieldValue);

  // Changes the record, approves every earlier one and this close's documents. The tag decides only which
  // right the user needs.
  float Update(std::string pCloseDT, automation::Object& colFieldName, automation::Object& colFieldValue,
               std::string& strOprTag);

  // Takes the record away together with all close documents of that date, approved or not.
  float Delete(automation::Value pCloseDT);

  // Closes the month that ends with pCloseDT ("YYYY/MM/DD"): a document per department, one for the company,
  // and last the record made of the collections. Each document is committed by itself; a failed run is
  // cleaned up by the next one at the latest. Yields to the caller's message loop after every line.
  float Insert(automation::Value pCloseDT, automation::Object& colFieldName,
               automation::Object& colFieldValue);

  // Steps of Insert, on the same object: they read the period that it has fixed. cCloseDT is a whole date
  // literal, quotes included; cCloseID is a document number issued before.
  float STKMonthCloseDept(std::string& cCloseID, std::string& cCloseDT, std::string& cDeptNo);
  float STKMonthClose(std::string& cCloseID, std::string& cCloseDT);

 private:
  // The close date as a whole literal; the cost functions may put another in its place.
  void close_departments(frame::Call& call, DocumentNumbers& numbers, std::string& close_date);
  void close_company(frame::Call& call, DocumentNumbers& numbers, std::string& close_date);

  // These four have their names from the contract. The first three are date literals, quotes included, and
  // stay empty until Insert has fixed the period. The steps ask them at every statement: a client that has
  // its turn meanwhile and begins another close gives both runs its period.
  std::string PrevCloseDT;
  std::string TodayDT;
  std::string NextCloseDT;
  // The name of the department that is being closed: what the event Progressing would tell as DeptNm. Nothing
  // raises that event, so nothing reads the name.
  std::string CurDeptNm;
};

}  // namespace tallyra::close
