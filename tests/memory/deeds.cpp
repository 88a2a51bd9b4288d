#include "tests/memory/deeds.h"

#include <initializer_list>
#include <utility>

namespace tallyra::memory {
namespace {

namespace fs = std::filesystem;

using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;

// A key that no short text holds. What is a client's own is made while nothing fails.
const Value& long_key() {
  static const Value key = "A-NUMBER-WITH-MORE-THAN-A-FEW-LETTERS";
  return key;
}

Fields row(std::initializer_list<std::pair<const char*, Value>> entries) {
  return entries;
}

auto with_key(const char* member) {
  return [member](const Object& object, Fields& fields) {
    return object.call(member, long_key(), ref(fields.names), ref(fields.values));
  };
}

auto update_check(const char* tag) {
  return [tag](const Object& object, Fields& fields) {
    Value operation = tag;
    return object.call("Update", "S1", ref(fields.names), ref(fields.values), ref(operation));
  };
}

}  // namespace

std::vector<Deed> deeds() {
  return {
      {"insert_address", "CRevAddr", row({{"ADDRNO", long_key()}, {"ADDRNM", "Gate"}}), with_key("Insert")},
      {"update_controller", "CSTKController", row({{"CONTROLLERNM", "Bob"}}), with_key("Update")},
      {"delete_controller", "CSTKController", row({}),
       [](const Object& object, Fields&) { return object.call("Delete", long_key()); }},
      {"insert_note", "CStkShipNote", row({{"TRANNO", long_key()}, {"NOTES", "late"}}), with_key("Insert")},
      {"copy_header", "CTranHead", row({{"TRANNO", "T2"}, {"TRANTYPE", "STK010POREV"}}),
       [](const Object& object, Fields& fields) {
         Value type = "STK010POREV", copied = "T1";
         return object.call("Insert", "T2", ref(type), ref(fields.names), ref(fields.values), ref(copied));
       }},
      {"delete_header", "CTranHead", row({}),
       [](const Object& object, Fields&) {
         Value type = "STK010POREV";
         return object.call("Delete", "T1", ref(type));
       }},
      {"insert_return_line", "CTranDetail",
       row({{"TRANNO", "T1"}, {"REFERENCE", ""}, {"SN", 1}, {"PARTNO", "P2"}, {"QTY", -1}}),
       [](const Object& object, Fields& fields) {
         Value number = 1, kind = 0;
         return object.call("InsertRTN", "T1", ref(number), ref(fields.names), ref(fields.values), ref(kind));
       }},
      {"approve_check", "CCheckHead", row({{"STATUS", "approved"}, {"STATUSSN", 1}}),
       update_check("APPROVED"), stage::trapped(-2147168242, "No transaction is active.")},
      {"unapprove_check", "CCheckHead", row({{"STATUS", "open"}, {"STATUSSN", 0}}),
       update_check("UNAPPROVED")},
      {"insert_check_line", "CCheckDetail", row({{"CHECKNO", "S1"}, {"PARTNO", "P3"}, {"QTY", 2}}),
       [](const Object& object, Fields& fields) {
         Value check = "S1", part = "P3";
         return object.call("Insert", ref(check), ref(part), ref(fields.names), ref(fields.values));
       }},
      {"insert_cost_setting", "CPartCostSet", row({{"MTYPESN", 7}, {"COSTMETHOD", 1}}),
       [](const Object& object, Fields& fields) {
         return object.call("Insert", 7, ref(fields.names), ref(fields.values));
       }},
      {"close_month", "CStockClose", row({{"CLOSEDT", "2024/03/31"}, {"STATUSSN", 0}}),
       [](const Object& object, Fields& fields) {
         return object.call("Insert", "2024/03/31", ref(fields.names), ref(fields.values));
       },
       stage::done, true, true},
      {"delete_close", "CStockClose", row({}),
       [](const Object& object, Fields&) { return object.call("Delete", "2024/02/29"); }},
  };
}

StockedCompany::StockedCompany() {
  run({"BEGIN", "INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10','Store'),('20','Assembly')",
       "INSERT INTO PARTS(PARTNO,PARTNM,MTYPESN,PRICETYPESN) VALUES('P1','Bolt',1,1),('P2','Nut',1,2),"
       "('P3','Plate',2,2)",
       "INSERT INTO STKCONTROLLER(CONTROLLERNO,CONTROLLERNM) VALUES('" + automation::to_text(long_key()) +
           "','Ann')",
       "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,DEPTNOTO,STATUSSN) VALUES"
       "('T1','STK010POREV','2024-03-10 00:00:00','10','S1',1),"
       "('K1','STK027CLOSE','2024-03-01 00:00:00','10','',1)",
       "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,REFERENCE) VALUES('I1','STKCHECKISS','2024-03-20 "
       "00:00:00','S1')",
       "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,VQTY) VALUES('T1','',1,'P1',5,2,0),"
       "('T1','',2,'P2',3,4,0),('T1','',3,'P3',1,9,0),('K1','',0,'P1',5,2,0)",
       "INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('2024-02-29 00:00:00',1)",
       "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('S1','2024-03-20 00:00:00','10',0)",
       "INSERT INTO STKCHECKDT(CHECKNO,PARTNO,QTY,UPRICE) VALUES('S1','P1',4,1.5),('S1','P2',9,2)",
       "COMMIT"});
  fs::copy(folder(), kept(), fs::copy_options::recursive);
}

StockedCompany::~StockedCompany() {
  fs::remove_all(kept());
}

void StockedCompany::go_back() const {
  for (const auto& each : fs::directory_iterator(folder())) fs::remove(each);
  fs::copy(kept(), folder());
}

std::string StockedCompany::content() const {
  return rows(
      "SELECT 'REVADDR',ADDRNO,ADDRNM FROM REVADDR UNION ALL "
      "SELECT 'STKCONTROLLER',CONTROLLERNO,CONTROLLERNM FROM STKCONTROLLER UNION ALL "
      "SELECT 'STKSHIPNOTE',TRANNO,NOTES FROM STKSHIPNOTE UNION ALL "
      "SELECT 'STKTRANHD',TRANTYPE,DEPTNOFR||STATUSSN FROM STKTRANHD UNION ALL "
      "SELECT 'STKTRANDT',SN||PARTNO,QTY||' '||UPRICE FROM STKTRANDT UNION ALL "
      "SELECT 'STKCHECKHD',CHECKNO,STATUSSN FROM STKCHECKHD UNION ALL "
      "SELECT 'STKCHECKDT',CHECKNO,PARTNO||QTY FROM STKCHECKDT UNION ALL "
      "SELECT 'PARTCOSTSET',MTYPESN,COSTMETHOD FROM PARTCOSTSET UNION ALL "
      "SELECT 'STKCLOSEHD',CLOSEDT,STATUSSN FROM STKCLOSEHD ORDER BY 1,2,3");
}

}  // namespace tallyra::memory
