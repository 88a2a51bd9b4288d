#include "tests/behaviour/contention/writing_methods.h"

#include "tests/support/document_methods.h"
#include "tests/support/record_methods.h"

namespace tallyra::behaviour {
namespace {

using automation::Value;
using stage::Fields;
using stage::Outcome;
using Company = ClosingCompany;
namespace documents = transactions_test;

const Value day = *automation::parse_date("2024/03/07 12:00:00");

// The classes whose methods take a key and the collections.
Outcome write(const Company& company, const char* class_name, const char* method, const Value& key,
              Fields fields) {
  return stage::play_record(company.client(class_name), method, key, fields);
}
Outcome write(const Company& company, const char* class_name, const char* method, const Value& key,
              Fields fields, Value tag) {
  return stage::play_record(company.client(class_name), method, key, fields, std::move(tag));
}
Outcome remove(const Company& company, const char* class_name, const Value& key) {
  return stage::play_record(company.client(class_name), "Delete", key);
}

Outcome write_counted(const Company& company, const char* method, Value part) {
  Fields fields{{"CHECKNO", "S1"}, {"PARTNO", part}, {"QTY", 9}, {"ADDDT", day}};
  return stage::play_record(company.client("CCheckDetail"), method, "S1", std::move(part), fields);
}
Outcome remove_counted(const Company& company) {
  return stage::play_record(company.client("CCheckDetail"), "Delete", "S1", "frame");
}

Outcome write_document_line(const Company& company, const char* method, int number) {
  Fields fields{{"TRANNO", "D1"}, {"REFERENCE", "PO1"}, {"SN", number}, {"PARTNO", "frame"}, {"EDITDT", day}};
  return documents::write_line(company.client("CTranDetail"), method, {.document = "D1", .number = number},
                               fields);
}
Outcome insert_return_line(const Company& company, int number) {
  Fields fields{{"TRANNO", "RT"}, {"REFERENCE", "PO1"}, {"SN", number}, {"PARTNO", "new"}, {"ADDDT", day}};
  return documents::insert_return(company.client("CTranDetail"), "RT", number, fields);
}
Outcome insert_document(const Company& company, Value copied) {
  Fields fields{{"TRANNO", "D2"}, {"TRANTYPE", "STK020MISS"}, {"TRANDT", day}};
  return documents::insert_head(company.client("CTranHead"), "D2", "STK020MISS", fields, std::move(copied));
}

void close_january(const Company& company) {
  company.close("2024/01/31");
}

constexpr auto addresses = "SELECT * FROM REVADDR ORDER BY 1";
constexpr auto controllers = "SELECT * FROM STKCONTROLLER ORDER BY 1";
constexpr auto notes = "SELECT * FROM STKSHIPNOTE ORDER BY 1";
constexpr auto settings = "SELECT * FROM PARTCOSTSET ORDER BY 1";
constexpr auto checks = "SELECT * FROM STKCHECKHD ORDER BY 1";
constexpr auto counted = "SELECT * FROM STKCHECKDT ORDER BY 1,2";
constexpr auto heads = "SELECT TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,STATUSSN FROM STKTRANHD ORDER BY 1,2,3,4,5";
// Without the moments, which a copy takes from the computer's clock.
constexpr auto lines = "SELECT REFERENCE,SN,PARTNO,QTY,UPRICE,NOTES FROM STKTRANDT ORDER BY 1,2,3,4,5,6";
constexpr auto closes =
    "SELECT CLOSEDT,C.STATUSSN,TRANTYPE,TRANDT,DEPTNOFR,H.STATUSSN,SN,PARTNO,QTY,UPRICE "
    "FROM STKTRANHD H LEFT JOIN STKTRANDT L ON L.TRANNO=H.TRANNO LEFT JOIN STKCLOSEHD C ON 1=1 "
    "ORDER BY 1,2,3,4,5,6,7,8,9,10";

using Methods = std::vector<WritingMethod>;

Methods methods_of_records() {
  return {
      {"CRevAddrInsert",
       {},
       [](const Company& c) {
         return write(c, "CRevAddr", "Insert", "A2", {{"ADDRNO", "A2"}, {"ADDDT", day}});
       },
       addresses},
      {"CRevAddrUpdate",
       {},
       [](const Company& c) {
         return write(c, "CRevAddr", "Update", "A1", {{"EDITDT", day}});
       },
       addresses},
      {"CRevAddrDelete", {}, [](const Company& c) { return remove(c, "CRevAddr", "A1"); }, addresses},
      {"CSTKControllerInsert",
       {},
       [](const Company& c) {
         return write(c, "CSTKController", "Insert", "A2", {{"CONTROLLERNO", "A2"}, {"ADDDT", day}});
       },
       controllers},
      {"CSTKControllerUpdate",
       {},
       [](const Company& c) {
         return write(c, "CSTKController", "Update", "A1", {{"EDITDT", day}});
       },
       controllers},
      {"CSTKControllerDelete",
       {},
       [](const Company& c) { return remove(c, "CSTKController", "A1"); },
       controllers},
      {"CStkShipNoteInsert",
       {},
       [](const Company& c) {
         return write(c, "CStkShipNote", "Insert", "N2", {{"TRANNO", "N2"}, {"NOTEDT", day}});
       },
       notes},
      {"CStkShipNoteUpdate",
       {},
       [](const Company& c) {
         return write(c, "CStkShipNote", "Update", "N1", {{"NOTEDT", day}});
       },
       notes},
      {"CStkShipNoteDelete", {}, [](const Company& c) { return remove(c, "CStkShipNote", "N1"); }, notes},
      {"CPartCostSetInsert",
       {},
       [](const Company& c) {
         return write(c, "CPartCostSet", "Insert", 8, {{"MTYPESN", 8}, {"MTYPENM", "Raw"}, {"ADDDT", day}});
       },
       settings},
      {"CPartCostSetUpdate",
       {},
       [](const Company& c) {
         return write(c, "CPartCostSet", "Update", 7, {{"STATUSDT", day}}, "APPROVED");
       },
       settings},
      {"CPartCostSetDelete", {}, [](const Company& c) { return remove(c, "CPartCostSet", 7); }, settings},
  };
}

Methods methods_of_stocktakings() {
  return {
      {"CCheckHeadInsert",
       {},
       [](const Company& c) {
         return write(c, "CCheckHead", "Insert", "S2", {{"CHECKNO", "S2"}, {"CHECKDT", day}});
       },
       checks},
      {"CCheckHeadUpdate",
       {},
       [](const Company& c) {
         return write(c, "CCheckHead", "Update", "S1", {{"EDITDT", day}}, "");
       },
       checks},
      {"CCheckHeadUpdateApproved",
       {},
       [](const Company& c) {
         return write(c, "CCheckHead", "Update", "S1", {{"STATUSSN", 1}, {"STATUSDT", day}}, "APPROVED");
       },
       lines},
      {"CCheckHeadUpdateUnapproved",
       [](const Company& c) {
         write(c, "CCheckHead", "Update", "S1", {{"STATUSSN", 1}, {"STATUSDT", day}}, "APPROVED");
       },
       [](const Company& c) {
         return write(c, "CCheckHead", "Update", "S1", {{"STATUSSN", 0}, {"STATUSDT", day}}, "UNAPPROVED");
       },
       lines},
      {"CCheckHeadDelete", {}, [](const Company& c) { return remove(c, "CCheckHead", "S1"); }, counted},
      {"CCheckDetailInsert",
       {},
       [](const Company& c) { return write_counted(c, "Insert", "Bolt1"); },
       counted},
      {"CCheckDetailUpdate",
       {},
       [](const Company& c) { return write_counted(c, "Update", "frame"); },
       counted},
      {"CCheckDetailDelete", {}, remove_counted, counted},
  };
}

Methods methods_of_documents() {
  return {
      {"CTranHeadInsert", {}, [](const Company& c) { return insert_document(c, documents::omitted); }, heads},
      {"CTranHeadInsertCopy", {}, [](const Company& c) { return insert_document(c, "D1"); }, lines},
      {"CTranHeadUpdate",
       {},
       [](const Company& c) {
         Fields fields{{"STATUSSN", 1}, {"STATUSDT", day}};
         return documents::update_head(c.client("CTranHead"), "D1", "STK020MISS", fields, "APPROVED");
       },
       heads},
      {"CTranHeadDelete",
       {},
       [](const Company& c) { return documents::delete_head(c.client("CTranHead"), "D1", "STK020MISS"); },
       lines},
      {"CTranDetailInsert", {}, [](const Company& c) { return write_document_line(c, "Insert", 3); }, lines},
      {"CTranDetailUpdate", {}, [](const Company& c) { return write_document_line(c, "Update", 1); }, lines},
      {"CTranDetailDelete",
       {},
       [](const Company& c) {
         return documents::delete_line(c.client("CTranDetail"), {.document = "D1", .number = 1});
       },
       lines},
      {"CTranDetailInsertRTN", {}, [](const Company& c) { return insert_return_line(c, 3); }, lines},
      {"CTranDetailInsertRTNBeforeOthers",
       {},
       [](const Company& c) { return insert_return_line(c, 1); },
       lines},
      {"CTranDetailUpdateRTN",
       {},
       [](const Company& c) {
         Fields fields{{"QTY", -7}, {"EDITDT", day}};
         return documents::update_return(c.client("CTranDetail"), "RT", 1, fields);
       },
       lines},
  };
}

Methods methods_of_closes() {
  return {
      {"CStockCloseInsert", {}, [](const Company& c) { return c.close("2024/01/31"); }, closes},
      {"CStockCloseUpdate", close_january, [](const Company& c) { return c.approve("2024/01/31"); }, closes},
      {"CStockCloseDelete", close_january, [](const Company& c) { return c.remove("2024/01/31"); }, closes},
  };
}

}  // namespace

const Methods& writing_methods() {
  static const Methods all = [] {
    Methods methods = methods_of_records();
    for (const auto& more : {methods_of_stocktakings(), methods_of_documents(), methods_of_closes()})
      methods.insert(methods.end(), more.begin(), more.end());
    return methods;
  }();
  return all;
}

void give_records(const Company& company) {
  company.run(
      {"BEGIN", "INSERT INTO REVADDR(ADDRNO) VALUES('A1')",
       "INSERT INTO STKCONTROLLER(CONTROLLERNO) VALUES('A1')", "INSERT INTO STKSHIPNOTE(TRANNO) VALUES('N1')",
       "INSERT INTO PARTCOSTSET(MTYPESN) VALUES(7)",
       "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO) VALUES('S1','2024-03-04 00:00:00','10')",
       "INSERT INTO STKCHECKDT(CHECKNO,PARTNO,QTY) VALUES('S1','frame',5),('S1','bolt-1',900)",
       "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT) VALUES('D1','STK020MISS','2024-03-04 00:00:00'),"
       "('RT','STK011PORTN','2024-03-04 00:00:00')",
       "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,VQTY,UPRICE) "
       "VALUES('D1','PO1',1,'bolt-1',1,1,1),"
       "('D1','PO1',2,'Bolt1',1,1,1),('RT','PO1',1,'bolt-1',-1,1,1),('RT','PO1',2,'Bolt1',-1,1,1)",
       "COMMIT"});
}

}  // namespace tallyra::behaviour
