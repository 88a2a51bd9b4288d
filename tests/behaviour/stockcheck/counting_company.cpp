#include "tests/behaviour/stockcheck/counting_company.h"

#include <gtest/gtest.h>

#include "tests/support/record_methods.h"

namespace tallyra::behaviour {
namespace {

using stage::Fields;

std::string moment(const std::string& day) {
  return day.size() > 10 ? day : day + " 00:00:00";
}

}  // namespace

CountingCompany::CountingCompany(const std::string& system_database) : CompanyDatabase(system_database) {
  run({"BEGIN", "INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10','Store'),('20','Assembly')",
       "INSERT INTO PARTS(PARTNO,PARTNM,COLORNO,COLORNM,UNITNM,MTYPESN,PRICETYPESN) VALUES"
       "('P1','Bolt','R','red','piece',1,1),('P2','Nut',NULL,NULL,'piece',1,1),('P3','Plate','','','kg',1,1),"
       "('P4','Rod','','','m',1,1),('P5','Wire','','','m',1,1),('P6','Ring','','','piece',1,1)",
       "COMMIT"});
}

void CountingCompany::moves(const std::string& number, const std::string& type, const std::string& day,
                            const std::string& from, const std::string& to, const std::string& part,
                            const std::string& quantity, int status) const {
  run({"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,DEPTNOTO,STATUSSN) VALUES('" + number + "','" +
           type + "','" + moment(day) + "','" + from + "','" + to + "'," + std::to_string(status) + ")",
       "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE) VALUES('" + number + "','',1,'" + part +
           "'," + quantity + ",1)"});
}

void CountingCompany::closed(const std::string& day) const {
  run({"INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('" + moment(day) + "',1)"});
}

void CountingCompany::check(const std::string& number, const std::string& day,
                            const std::string& department) const {
  run({"INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN,ADDBY) VALUES('" + number + "','" +
       moment(day) + "','" + department + "',0,'CLERK')"});
}

void CountingCompany::counted(const std::string& number, const std::string& part, const std::string& quantity,
                              const std::string& price) const {
  run({"INSERT INTO STKCHECKDT(CHECKNO,PARTNO,QTY,UPRICE) VALUES('" + number + "','" + part + "'," +
       quantity + "," + price + ")"});
}

stage::Outcome CountingCompany::update(const char* number, const char* tag, const char* user) const {
  Fields fields{{"STATUS", tag}, {"STATUSSN", std::string_view(tag) == "APPROVED" ? 1 : 0}};
  return stage::play_record(client("CCheckHead", user), "Update", number, fields, tag);
}

std::string CountingCompany::posted_lines() const {
  return rows(
      "SELECT L.PARTNO, L.QTY, L.UPRICE FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO "
      "WHERE H.TRANTYPE='STKCHECKISS' ORDER BY L." +
      std::string(row_order()));
}

std::string CountingCompany::postings() const {
  const std::string text = rows(
      "SELECT (SELECT Count(*) FROM STKTRANHD WHERE TRANTYPE='STKCHECKISS'),"
      "(SELECT Count(*) FROM STKTRANDT WHERE SN=0)");
  return text.substr(0, text.size() - 1);
}

std::string CountingCompany::everything() const {
  const std::string order = row_order();
  return rows("SELECT * FROM STKCHECKHD ORDER BY CHECKNO") +
         rows("SELECT * FROM STKCHECKDT ORDER BY CHECKNO, PARTNO") +
         rows("SELECT * FROM STKTRANHD ORDER BY TRANNO, " + order) +
         rows("SELECT * FROM STKTRANDT ORDER BY TRANNO, SN, PARTNO, " + order);
}

void expect_posted(const stage::Outcome& outcome) {
  EXPECT_EQ(outcome.result, 0);
  EXPECT_EQ(outcome.number, stage::narrowed(-2147168242)) << outcome.description;
  EXPECT_EQ(outcome.number, -2147168256) << "as a single-precision number holds it";
}

}  // namespace tallyra::behaviour
