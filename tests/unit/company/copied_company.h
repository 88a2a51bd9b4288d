#pragma once

#include <string>

#include "automation/error.h"
#include "company/ado_connection.h"
#include "company/database_copy.h"
#include "company/options.h"
#include "company/schema_upgrade.h"
#include "tests/support/empty_database.h"
#include "tests/unit/company/company_folder.h"

namespace tallyra::tests::generated_company {

// An SQLite database to copy from, empty but for a few awkward rows and two series of document numbers.
class CopiedCompany {
 public:
  CopiedCompany() {
    sqlite_engine.empty_database();  // registers ADO
    company::upgrade_schema(path());
    run({"INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10 ','It''s a store')",
         "INSERT INTO PARTS(PARTNO,PARTNM,EDITDT) VALUES('中-1','',NULL)",
         "INSERT INTO PARTS(PARTNO,PARTNM,ADDDT) VALUES('a ','back\\slash ? {fn x}','2024-02-29 23:59:59')",
         "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR) VALUES('','T','1899-12-31 00:00:00','10')",
         "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,DEPTNOFR) VALUES('','T','10  ')",
         "INSERT INTO STKTRANDT(TRANNO,PARTNO,SN,QTY,UPRICE) VALUES('T1','a ',0,-0.125,1234567.891)",
         "INSERT INTO STKTRANDT(TRANNO,PARTNO,SN,QTY,UPRICE) VALUES('T1','a ',0,-0.125,1234567.891)",
         "INSERT INTO USERRIGHTS(USERID,FUNCCODE,CANINSERT) VALUES('ADMIN','*',1)"});
    const company::AdoConnection counters(sqlite(path() + ".keys") + ";NoCreat=0");
    for (const char* statement :
         {"CREATE TABLE TABLEKEYS(SERIES VARCHAR(40) NOT NULL PRIMARY KEY,LASTNO INTEGER NOT "
          "NULL)",
          "INSERT INTO TABLEKEYS VALUES('027CLOSE',41)",
          "INSERT INTO TABLEKEYS VALUES('CHECKISS240331',7)"}) {
      counters.execute(statement);
    }
  }

  std::string path() const { return folder_.file("source.db"); }
  std::string file(const std::string& name) const { return folder_.file(name); }
  void run(std::initializer_list<const char*> statements) const {
    const company::AdoConnection connection(sqlite(path()));
    for (const char* statement : statements) connection.execute(statement);
  }
  void copy_to(const std::string& place) const {
    company::copy_database(path(), place, [](auto, auto, auto, auto) {});
  }
  // Why a copy is refused.
  std::string refusal(const std::string& place) const {
    try {
      copy_to(place);
      return "not refused";
    } catch (const company::Refusal& refused) {
      return refused.what();
    }
  }

  static std::string sqlite(const std::string& file) {
    return "DRIVER={SQLite3};Database=" + file + ";Timeout=500";
  }

 private:
  CompanyFolder folder_;
};

}  // namespace tallyra::tests::generated_company
