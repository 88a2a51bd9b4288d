#include "tests/behaviour/close/closing_company.h"

#include "tests/support/record_methods.h"

namespace tallyra::behaviour {
namespace {

using stage::Fields;
using stage::Outcome;

std::string document(const char* number, const char* type, const char* day, const char* from, const char* to,
                     int status = 1) {
  return std::string("INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,DEPTNOTO,STATUSSN) VALUES('") +
         number + "','" + type + "','" + day + " 00:00:00','" + from + "','" + to + "'," +
         std::to_string(status) + ")";
}

std::string line(const char* number, int sn, const char* part, double quantity, double price) {
  return std::string("INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE) VALUES('") + number +
         "',''," + std::to_string(sn) + ",'" + part + "'," + std::to_string(quantity) + "," +
         std::to_string(price) + ")";
}

std::string part(const char* number, int price_type, int material_type) {
  return std::string("INSERT INTO PARTS(PARTNO,PARTNM,PRICETYPESN,MTYPESN) VALUES('") + number + "','" +
         number + "'," + std::to_string(price_type) + "," + std::to_string(material_type) + ")";
}

}  // namespace

ClosingCompany::ClosingCompany(const std::string& system_database, int lock_wait)
    : CompanyDatabase(system_database, lock_wait) {
  run({"BEGIN", "INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('20','Assembly'),('10','Store'),('30','Office')",
       part("bolt-1", 1, 1), part("Bolt1", 3, 1), part("BOLT-1", 2, 1), part("frame", 2, 2),
       part("螺丝", 1, 1), document("R1", "STK010POREV", "2024-01-10", "10", "S1"),
       line("R1", 1, "bolt-1", 10, 2), line("R1", 2, "Bolt1", 4, 5), line("R1", 3, "螺丝", 7, 0.5),
       document("R2", "STK010POREV", "2024-01-20", "10", "S1"), line("R2", 1, "bolt-1", 5, 3),
       line("R2", 2, "Bolt1", 4, 7), line("R2", 3, "BOLT-1", 2, 9),
       document("I1", "STK020MISS", "2024-01-31", "10", ""), line("I1", 1, "bolt-1", -6, 0),
       document("T1", "STK024MRPL", "2024-01-25", "", "20"), line("T1", 1, "bolt-1", 6, 0),
       line("T1", 2, "Bolt1", 1, 0), line("T1", 3, "螺丝", 2, 0),
       document("P1", "STK022REVMO", "2024-01-28", "20", ""), line("P1", 1, "frame", 3, 20),
       line("P1", 2, "bolt-1", 1, 0),
       // February; one of the documents is not approved and counts all the same
       document("R3", "STK010POREV", "2024-02-10", "10", "S1", 0), line("R3", 1, "bolt-1", 1, 4),
       document("P2", "STK022REVMO", "2024-02-29", "20", ""), line("P2", 1, "frame", 1, 40),
       // March: outside both closes
       document("R4", "STK010POREV", "2024-03-01", "10", "S1"), line("R4", 1, "bolt-1", 100, 100), "COMMIT"});
}

Outcome ClosingCompany::close(const char* date, const char* user) const {
  Fields fields{{"CLOSEDT", date}, {"STATUSSN", 0}};
  return stage::play_record(client("CStockClose", user), "Insert", date, fields);
}

Outcome ClosingCompany::approve(const char* date) const {
  Fields fields{{"STATUSSN", 1}};
  return stage::play_record(client("CStockClose"), "Update", date, fields, "APPROVED");
}

Outcome ClosingCompany::remove(const char* date) const {
  return stage::play_record(client("CStockClose"), "Delete", date);
}

std::string ClosingCompany::department_lines(const std::string& day) const {
  return rows(
      "SELECT H.DEPTNOFR, L.PARTNO, L.QTY, L.UPRICE FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO "
      "WHERE H.TRANTYPE='STK027CLOSE' AND H.TRANDT='" +
      day + " 00:00:00' ORDER BY H.DEPTNOFR, L.PARTNO");
}

std::string ClosingCompany::company_lines(const std::string& day) const {
  return rows(
      "SELECT L.PARTNO, L.QTY, L.UPRICE, L.NOTES FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO "
      "WHERE H.TRANTYPE='STKCLOSEALL' AND H.TRANDT='" +
      day + " 00:00:00' ORDER BY L.PARTNO");
}

std::string ClosingCompany::everything() const {
  return rows("SELECT * FROM STKTRANHD ORDER BY TRANNO") +
         rows("SELECT * FROM STKTRANDT ORDER BY TRANNO, SN, PARTNO") +
         rows("SELECT * FROM STKCLOSEHD ORDER BY CLOSEDT");
}

}  // namespace tallyra::behaviour
