#pragma once

#include <string>

// The queries of month closes, stocktakings and orders that tests of several levels tell a stage about. Dates
// are literals with the quotes of the kind, or nothing where a field is empty.
namespace tallyra::stage {

class Stage;

inline const std::string departments = "Select DEPTNO,DEPTNM FROM DEPARTS  Order by DEPTNO";

// The close of a date, and the last one before it.
std::string close_of(const std::string& date);
std::string close_before(const std::string& date);
// What went out of a department in a period and what was transferred in, by part.
std::string department_out(const std::string& department, const std::string& after, const std::string& until);
std::string department_in(const std::string& department, const std::string& after, const std::string& until);
// The department documents of a day, by part.
std::string department_documents(const std::string& date);
// Tells that there is nothing of all that.
void no_movements(Stage& stage, const std::string& department, const std::string& after,
                  const std::string& until);
void no_documents(Stage& stage, const std::string& date);

// The lines of stocktaking S1, and the last close up to its day.
inline const std::string counted_lines =
    "SELECT STKCHECKHD.CHECKDT,STKCHECKDT.*,STKCHECKHD.DEPTNO,DEPARTS.DEPTNM  FROM (STKCHECKDT Inner Join "
    "STKCHECKHD On (STKCHECKDT.CHECKNO=STKCHECKHD.CHECKNO)) Inner Join DEPARTS On "
    "(STKCHECKHD.DEPTNO=DEPARTS.DEPTNO)  WHERE STKCHECKDT.CHECKNO='S1' Order By STKCHECKDT.PARTNO";
std::string close_until(const std::string& date);
// The sums of what of a part went out of department 10 in a period and of what was transferred in.
std::string part_out(const std::string& part, const std::string& after, const std::string& until);
std::string part_in(const std::string& part, const std::string& after, const std::string& until);

// What of part P1 the documents of a type other than T1 have issued for order M1, and what they took back.
std::string issued_for_order(const std::string& type);
std::string returned_from_order(const std::string& type);

}  // namespace tallyra::stage
