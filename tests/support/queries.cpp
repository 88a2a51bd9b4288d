#include "tests/support/queries.h"

#include "tests/support/stage.h"

namespace tallyra::stage {
namespace {

std::string movements(const std::string& direction, const std::string& after, const std::string& until,
                      const char* tail) {
  return "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD On "
         "STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD." +
         direction + " And STKTRANHD.TRANDT>" + after + " AND STKTRANHD.TRANDT<=" + until + tail +
         " GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO";
}

std::string sum(const char* direction, const std::string& after, const std::string& until,
                const std::string& tail) {
  return std::string(
             "Select SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD On "
             "STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.") +
         direction + "='10' And STKTRANHD.TRANDT>" + after + " And STKTRANHD.TRANDT<=" + until + tail;
}

}  // namespace

std::string close_of(const std::string& date) {
  return "Select top 1 * From STKCLOSEHD WHERE CLOSEDT=" + date;
}

std::string close_before(const std::string& date) {
  return "Select Top 1 * From STKCLOSEHD Where CLOSEDT<" + date + " Order By CLOSEDT DESC";
}

std::string department_out(const std::string& department, const std::string& after,
                           const std::string& until) {
  return movements("DEPTNOFR='" + department + "'", after, until, " AND  STKTRANHD.TRANTYPE<>'STKCLOSEALL'");
}

std::string department_in(const std::string& department, const std::string& after, const std::string& until) {
  return movements("DEPTNOTO='" + department + "' And STKTRANHD.TRANTYPE='STK024MRPL'", after, until, "");
}

std::string department_documents(const std::string& date) {
  return "Select PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT,SUM(STKTRANDT.QTY) AS QTY "
         "From (STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO) Inner Join PARTS On "
         "STKTRANDT.PARTNO=PARTS.PARTNO  Where STKTRANHD.TRANDT=" +
         date +
         " AND STKTRANHD.TRANTYPE='STK027CLOSE'  GROUP BY "
         "PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT Order by "
         "PARTS.MTYPESN,STKTRANDT.PARTNO ASC";
}

void no_movements(Stage& stage, const std::string& department, const std::string& after,
                  const std::string& until) {
  for (const auto& query :
       {department_out(department, after, until), department_in(department, after, until)})
    stage.finds_nothing(query, {"PARTNO", "QTY"});
}

void no_documents(Stage& stage, const std::string& date) {
  stage.finds_nothing(department_documents(date), {"MTYPESN", "PARTNO", "PRICETYPESN", "EDITDT", "QTY"});
}

std::string close_until(const std::string& date) {
  return "Select TOP 1 * From STKCLOSEHD  WHERE CLOSEDT<=" + date + " Order By CLOSEDT Desc";
}

std::string part_out(const std::string& part, const std::string& after, const std::string& until) {
  return sum("DEPTNOFR", after, until, " AND STKTRANDT.PARTNO='" + part + "'");
}

std::string part_in(const std::string& part, const std::string& after, const std::string& until) {
  return sum("DEPTNOTO", after, until,
             " And STKTRANHD.TRANTYPE='STK024MRPL' AND STKTRANDT.PARTNO='" + part + "'");
}

std::string issued_for_order(const std::string& type) {
  return "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD On "
         "STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where STKTRANDT.TRANNO<>'T1' And STKTRANDT.REFERENCE='M1' And "
         "STKTRANDT.PARTNO='P1' And STKTRANHD.TRANTYPE='" +
         type + "' And STKTRANHD.STATUSSN<>3 Group By STKTRANDT.PARTNO";
}

std::string returned_from_order(const std::string& type) {
  return "Select STKTRANHD.TRANTYPE,STKTRANDT.REFERENCE,STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From "
         "STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANDT.TRANNO<>'T1' "
         "And "
         "STKTRANDT.REFERENCE='M1' AND STKTRANDT.PARTNO='P1' And  STKTRANHD.TRANTYPE='" +
         type +
         "' And STKTRANHD.STATUSSN<>3 GROUP BY STKTRANHD.TRANTYPE,STKTRANDT.REFERENCE,STKTRANDT.PARTNO";
}

}  // namespace tallyra::stage
