#include <gtest/gtest.h>

#include <string>

#include "tests/samples/company_folder.h"
#include "tests/samples/stock_statements.h"

namespace {

using namespace tallyra::tests::samples;

// Every statement of the classes, in the form in which SQLite runs it: rows limited at the end, plain
// deletes, dates with their time. Grouped by class.
const std::string statements[] = {
    // receiving addresses
    "Select * From REVADDR Where AddrNo='A'", "Select ADDBY from REVADDR WHERE ADDRNO='A'",
    "Select * From REVADDR LIMIT 1", "Delete From REVADDR Where AddrNo='A'",
    // stock controllers
    "Select * From STKCONTROLLER Where CONTROLLERNO='K'",
    "Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='K'", "Select * From STKCONTROLLER LIMIT 1",
    "Delete From STKCONTROLLER Where CONTROLLERNO='K'",
    // closing-date guard
    "Select * From STKCLOSEHD Where CLOSEDT>='2024-01-31 00:00:00'",
    // document headers
    "Select STKTRANHD.*,STKSHIPNOTE.NOTES AS FEEDBACK From STKTRANHD LEFT JOIN STKSHIPNOTE ON "
    "STKTRANHD.TRANNO=STKSHIPNOTE.TRANNO  Where STKTRANHD.TRANNO='T'",
    "Select STKTRANHD.* From STKTRANHD Where STKTRANHD.TRANNO='T'",
    "Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='T' AND STKTRANHD.TRANTYPE='X'",
    "Select ADDBY from STKTRANHD WHERE TRANNO='T'", "Select * From STKTRANHD LIMIT 1",
    "Select * From STKTRANHD where TRANNO='T'", "SELECT * FROM STKTRANDT WHERE TRANNO='T'",
    "INSERT INTO "
    "STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,REFPARTNO,MONO,QTY,VQTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,EDITDT) "
    "VALUES('T','R',1,'P','','',1.5,1.5,2,'','U','2024-03-07 14:05:09','U','2024-03-07 14:05:09')",
    "Delete From STKTRANHD Where TRANNO='T'", "Delete From STKTRANDT Where TRANNO='T'",
    "Delete From STKSHIPNOTE Where TRANNO='T'",
    // document lines
    "Select "
    "STKTRANDT.*,PARTS.PARTNM,PARTS.CATEGORYNO,PARTS.CATEGORYNO,PARTS.COLORNO,PARTS.COLORNM,PARTS.UNITNM  "
    "From "
    "STKTRANDT INNER JOIN PARTS ON STKTRANDT.PARTNO=PARTS.PARTNO  WHERE STKTRANDT.TRANNO='T' AND "
    "STKTRANDT.REFERENCE='R' AND STKTRANDT.SN=1",
    "Select STKTRANDT.*,PARTS.PARTNM From STKTRANDT INNER JOIN PARTS ON STKTRANDT.PARTNO=PARTS.PARTNO WHERE "
    "STKTRANDT.TRANNO='T' AND STKTRANDT.REFERENCE='R' AND STKTRANDT.PARTNO='P' ",
    "Select ADDBY from STKTRANDT WHERE STKTRANDT.TRANNO='T' AND STKTRANDT.REFERENCE='R' AND STKTRANDT.SN=1",
    "Select * From STKTRANDT LIMIT 1",
    "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T' And STKTRANDT.REFERENCE='R' And "
    "STKTRANDT.PARTNO='P'",
    "Delete From STKTRANDT WHERE STKTRANDT.TRANNO='T' AND STKTRANDT.REFERENCE='R' AND STKTRANDT.SN=1",
    // purchase returns
    "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS ON STKTRANHD.DEPTNOTO =SUPPLIERS  WHERE "
    "STKTRANHD.TRANNO='T'",
    "SELECT STKTRANHD.TRANNO FROM STKTRANHD INNER JOIN STKTRANDT ON STKTRANHD.TRANNO=STKTRANDT.TRANNO WHERE "
    "STKTRANHD.DEPTNOTO='S' AND STKTRANHD.TRANTYPE='STK010POREV' AND STKTRANDT.PARTNO='P' LIMIT 1",
    "Select * From STKTRANDT Where TRANNO='T'  And SN=1",
    "Select STKTRANDT.* FROM STKTRANDT Where STKTRANDT.TRANNO='T' AND STKTRANDT.SN>=1  ORDER BY STKTRANDT.SN "
    "DESC ",
    "UPDATE STKTRANDT SET SN=2 Where TRANNO='T' AND SN=1", "Select ADDBY from STKTRANDT WHERE TRANNO='T'",
    // order references
    "Select PODT.PONO,PODT.PARTNO,PODT.POQTY+PODT.DEDUCTQTY As POQTY From PODT Inner Join POHD On "
    "PODT.PONO=POHD.PONO "
    "Where PODT.PONO='P' AND PODT.SN=1 And POHD.STATUSSN=1",
    "Select STKTRANDT.TRANNO,STKTRANDT.SN,STKTRANDT.QTY As POQTY From STKTRANDT Inner Join STKTRANHD On "
    "STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANDT.TRANNO='T' AND STKTRANDT.SN=1 And "
    "STKTRANHD.STATUSSN=1",
    "Select STKTRANDT.REFERENCE,STKTRANDT.SN,SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
        "STKTRANDT.REFERENCE='R' AND STKTRANDT.SN=1 AND STKTRANHD.TRANTYPE='STK010PORTN' And "
        "STKTRANHD.STATUSSN=1  "
        "Group By STKTRANDT.REFERENCE,STKTRANDT.SN",
    "Select POHD.PONO From POHD Where POHD.PONO='P'",
    "Select STKTRANHD.TRANNO From STKTRANHD Where STKTRANHD.TRANNO='T' And STKTRANHD.TRANTYPE='STK011PORTN'",
    "Select SOHD.SONO From SOHD Where SONO='S'", "Select COHD.CONO From COHD Where COHD.CONO='C'",
    // issued and returned quantities, requirements
    "Select STKTRANHD.TRANTYPE,STKTRANDT.REFERENCE,STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY" +
        lines_with_headers +
        "STKTRANDT.TRANNO<>'T' And STKTRANDT.REFERENCE='M' AND STKTRANDT.PARTNO='P' And  "
        "STKTRANHD.TRANTYPE='STK021RTN1' And STKTRANHD.STATUSSN<>3 GROUP BY "
        "STKTRANHD.TRANTYPE,STKTRANDT.REFERENCE,STKTRANDT.PARTNO",
    "Select SUM(CODETAIL.COQTY+CODETAIL.TEMPLETQTY) From CODETAIL Inner Join COHD On CODETAIL.CONO=COHD.CONO "
    "Where "
    "CODETAIL.CONO='C' And CODETAIL.PARTNO='P' And COHD.STATUSSN=1",
    "Select PARTNO,SOQTY From SODTBOM Where SONO='S'",
    "Select PARTNO,ENGQTY,URATE,WSRATE From ASSMBOM Where ASSMNO='A'",
    "Select ASSMNO From ASSMBOM Where PARTNO='P'",
    // stocktaking
    "Select STKCHECKHD.* From STKCHECKHD Where STKCHECKHD.CHECKNO='C'",
    "Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='C'", "Select * From STKCHECKHD LIMIT 1",
    "Delete From STKTRANDT Where rowid In (Select STKTRANDT.rowid" + lines_with_headers +
        "STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='C')",
    "DELETE FROM STKTRANHD WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='C'",
    "Delete From STKCHECKHD Where CHECKNO='C'", "Delete From STKCHECKDT Where CHECKNO='C'",
    "SELECT STKCHECKHD.CHECKDT,STKCHECKDT.*,STKCHECKHD.DEPTNO,DEPARTS.DEPTNM  FROM (STKCHECKDT Inner Join "
    "STKCHECKHD "
    "On (STKCHECKDT.CHECKNO=STKCHECKHD.CHECKNO)) Inner Join DEPARTS On (STKCHECKHD.DEPTNO=DEPARTS.DEPTNO)  "
    "WHERE "
    "STKCHECKDT.CHECKNO='C' Order By STKCHECKDT.PARTNO",
    "Select * From STKCLOSEHD  WHERE CLOSEDT<='2024-02-29 00:00:00' Order By CLOSEDT Desc LIMIT 1",
    check_outgoing, check_incoming,
    "Insert Into "
    "STKTRANHD(TRANNO,TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,DEPTNMFR,STATUS,STATUSSN,STATUSBY,STATUSDT,MAKEBY,"
    "NOTES,ADDBY,ADDDT,EDITBY,EDITDT) Values('T','STKCHECKISS','C','2024-02-29 "
    "00:00:00','20','Assembly','Approved',1,"
    "'SYSTEM','2024-03-07 14:05:09','SYSTEM','Check','SYSTEM','2024-03-07 14:05:09','SYSTEM','2024-03-07 "
    "14:05:09')",
    "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,MONO,QTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,EDITDT) "
    "Values('T','C',"
    "0,'P','',-2,0,'Check','SYSTEM','2024-03-07 00:00:00','SYSTEM','2024-03-07 00:00:00')",
    "Select STKCHECKDT.*,PARTS.PARTNM,PARTS.COLORNO,PARTS.COLORNM,PARTS.UNITNM From STKCHECKDT INNER JOIN "
    "PARTS ON "
    "STKCHECKDT.PARTNO=PARTS.PARTNO  Where STKCHECKDT.CHECKNO='C' And STKCHECKDT.PartNo='P' ",
    "Select * From STKCHECKDT LIMIT 1", "Select PARTNO from PARTS WHERE PARTS.PARTNO='P'",
    "Delete From STKCHECKDT Where CHECKNO='C' And PartNo='P'",
    // costing settings
    "Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=-1", "Select * From PARTCOSTSET LIMIT 1",
    "Delete From PARTCOSTSET Where MTYPESN=-1",
    // month close
    "Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT='2024-01-31 00:00:00'",
    "Update STKCLOSEHD Set STATUSSN=1 Where CLOSEDT<'2024-01-31 00:00:00' And STATUSSN<1", approve_close,
    "Delete From STKCLOSEHD Where CLOSEDT='2024-01-31 00:00:00'",
    "Select DEPTNO,DEPTNM FROM DEPARTS  Order by DEPTNO", clear_lines, clear_headers, close_outgoing,
    close_incoming,
    "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR,NOTES,ADDBY,ADDDT,EDITBY,EDITDT) "
    "Values('C',"
    "'STK027CLOSE',0,'2024-02-01 00:00:00','20 ','','U','2024-02-05 00:00:00','U','2024-02-05 00:00:00')",
    "Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT) "
    "Values('C','',0,'P',3, 0 "
    ",'U','2024-02-05 00:00:00','U','2024-02-05 00:00:00')",
    company_close,
    "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,ADDBY,ADDDT,EDITBY,EDITDT) "
    "Values('D','STKCLOSEALL',0,"
    "'2024-02-01 00:00:00','U','2024-02-05 00:00:00','U','2024-02-05 00:00:00')",
    "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,EDITDT) "
    "VALUES('D','',0,'P',"
    "3,1.25,'Month`s close','U','2024-02-05 00:00:00','U','2024-02-05 00:00:00')",
    last_receipt, receipts_of_period, produced_and_closed,
    // shipping notes
    "Select STKSHIPNOTE.* From STKSHIPNOTE Where STKSHIPNOTE.TRANNO='T'",
    "Select ADDBY from STKSHIPNOTE WHERE STKSHIPNOTE.TRANNO='T' AND STKSHIPNOTE.TRANTYPE='STK030SHIPN'",
    "Select * From STKSHIPNOTE LIMIT 1",
    // rights
    "SELECT * FROM USERRIGHTS WHERE USERID IN ('U','*') AND FUNCCODE IN ('STK027CLOSE','*')"};

TEST(SchemaStatements, AreAcceptedByAnEmptyDatabase) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  for (const std::string& statement : statements) {
    EXPECT_NO_THROW(database.execute(statement)) << statement;
  }
}

TEST(SchemaStatements, AreRefusedWhenAColumnIsMissing) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  EXPECT_THROW(database.execute("Select DEPTNO,MISSING FROM DEPARTS"), company::DatabaseError);
}

TEST(SchemaStatements, AMonthCanBeClosedOnThem) {
  const CompanyFolder folder;
  company::Database database(folder.company_database());
  EXPECT_FALSE(database.query(close_outgoing).empty());
  EXPECT_FALSE(database.query(close_incoming).empty());
  database.execute(
      "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR) "
      "VALUES('C','STK027CLOSE',0,'2024-03-01 00:00:00','20 ')");
  database.execute("INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY) SELECT 'C','',0,PARTNO,QTY FROM (" +
                   close_outgoing + ")");
  EXPECT_EQ(database.query(company_close).size(), database.query(close_outgoing).size());
  database.execute(clear_lines);
  database.execute(clear_headers);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT WHERE TRANNO='C'"), "0");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANHD WHERE TRANNO='C'"), "0");
}

}  // namespace
