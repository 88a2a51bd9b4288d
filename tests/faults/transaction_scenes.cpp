#include "tests/faults/scene.h"

namespace tallyra::faults {
namespace {

using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;
using stage::Stage;

const std::string owner_of_header =
    "Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='T1' AND STKTRANHD.TRANTYPE='STK010POREV'";
const std::string owner_of_line =
    "Select ADDBY from STKTRANDT WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1'"
    " AND STKTRANDT.SN=1";

void owner(Stage& stage, const std::string& query) {
  stage.set("Owner", 1).finds(query, {{"ADDBY"}, {{"TESTER"}}});
}

void header_scenes(std::vector<Scene>& scenes) {
  const auto read = [](const Object& object, Fields& fields) {
    Value number = "T1", type = "STK010POREV";
    return object.call("Read", ref(number), ref(type), ref(fields.names), ref(fields.values));
  };
  scenes.push_back(
      {"CTranHead", "Read", "",
       [](Stage& stage) {
         stage.finds("Select STKTRANHD.* From STKTRANHD Where STKTRANHD.TRANNO='T1'", {{"COLUMN"}, {{1}}});
       },
       read});

  const auto update = [](const Object& object, Fields& fields) {
    Value type = "STK010POREV", tag = "";
    return object.call("Update", "T1", ref(type), ref(fields.names), ref(fields.values), ref(tag));
  };
  scenes.push_back({"CTranHead", "Update", "", [](Stage& stage) { stage.set("CanUpdate", 1); }, update});
  scenes.push_back(
      {"CTranHead", "Update", "owner", [](Stage& stage) { owner(stage, owner_of_header); }, update});

  scenes.push_back(
      {"CTranHead", "Insert", "copy",
       [](Stage& stage) {
         stage.set("CanInsert", 1).finds_nothing("Select * From STKTRANHD where TRANNO='T1'");
         stage.finds("SELECT * FROM STKTRANDT WHERE TRANNO='T0'",
                     {{"REFERENCE", "SN", "PARTNO", "REFPARTNO", "MONO", "QTY", "VQTY", "UPRICE", "NOTES"},
                      {{"", 1, "A", "", "", 1, 1, 1, ""}, {"", 2, "B", "", "", 1, 1, 1, Null{}}}});
       },
       [](const Object& object, Fields& fields) {
         Value type = "STK010POREV", copied = "T0";
         return object.call("Insert", "T1", ref(type), ref(fields.names), ref(fields.values), ref(copied));
       }});

  const auto remove = [](const Object& object, Fields&) {
    Value type = "STK010POREV";
    return object.call("Delete", "T1", ref(type));
  };
  scenes.push_back({"CTranHead", "Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); }, remove});
  scenes.push_back({"CTranHead", "Delete", "owner",
                    [](Stage& stage) { owner(stage, "Select ADDBY from STKTRANHD WHERE TRANNO='T1'"); },
                    remove});
}

Value write_line(const Object& object, const char* member, Fields& fields) {
  Value number = "T1", type = "STK010POREV", reference = "PO1", part = "P1", sn = 1;
  return object.call(member, ref(number), ref(type), ref(reference), ref(part), ref(fields.names),
                     ref(fields.values), ref(sn));
}

void line_scenes(std::vector<Scene>& scenes) {
  scenes.push_back({"CTranDetail", "Read", "",
                    [](Stage& stage) {
                      stage.finds(
                          "Select STKTRANDT.*,PARTS.PARTNM,PARTS.CATEGORYNO,PARTS.CATEGORYNO,PARTS.COLORNO,"
                          "PARTS.COLORNM,PARTS.UNITNM  From STKTRANDT INNER JOIN PARTS ON"
                          " STKTRANDT.PARTNO=PARTS.PARTNO  WHERE STKTRANDT.TRANNO='T1'"
                          " AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.SN=1",
                          {{"COLUMN"}, {{1}}});
                    },
                    [](const Object& object, Fields& fields) {
                      Value number = "T1", reference = "PO1", part = "P1", sn = 1;
                      return object.call("Read", ref(number), ref(reference), ref(part), ref(fields.names),
                                         ref(fields.values), ref(sn));
                    }});
  const auto update = [](const Object& object, Fields& fields) {
    return write_line(object, "Update", fields);
  };
  scenes.push_back({"CTranDetail", "Update", "", [](Stage& stage) { stage.set("CanUpdate", 1); }, update});
  scenes.push_back(
      {"CTranDetail", "Update", "owner", [](Stage& stage) { owner(stage, owner_of_line); }, update});
  scenes.push_back(
      {"CTranDetail", "Insert", "",
       [](Stage& stage) {
         stage.set("CanInsert", 1)
             .finds_nothing(
                 "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T1' And "
                 "STKTRANDT.REFERENCE='PO1' And STKTRANDT.SN=1");
       },
       [](const Object& object, Fields& fields) { return write_line(object, "Insert", fields); }});
  const auto remove = [](const Object& object, Fields&) {
    Value number = "T1", type = "STK010POREV", reference = "PO1", part = "P1", sn = 1;
    return object.call("Delete", ref(number), ref(type), ref(reference), ref(part), ref(sn));
  };
  scenes.push_back({"CTranDetail", "Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); }, remove});
  scenes.push_back(
      {"CTranDetail", "Delete", "owner", [](Stage& stage) { owner(stage, owner_of_line); }, remove});
}

void return_line_scenes(std::vector<Scene>& scenes) {
  const auto insert = [](Value check) {
    return [check](const Object& object, Fields& fields) {
      Value sn = 1, kind = check;
      return object.call("InsertRTN", "T1", ref(sn), ref(fields.names), ref(fields.values), ref(kind));
    };
  };
  scenes.push_back(
      {"CTranDetail", "InsertRTN", "end",
       [](Stage& stage) {
         stage.set("CanInsert", 1).finds_nothing("Select * From STKTRANDT Where TRANNO='T1'  And SN=1");
       },
       insert(0)});
  scenes.push_back({"CTranDetail", "InsertRTN", "shift",
                    [](Stage& stage) {
                      stage.set("CanInsert", 1);
                      stage.finds(
                          "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS"
                          " ON STKTRANHD.DEPTNOTO =SUPPLIERS  WHERE STKTRANHD.TRANNO='T1'",
                          {{"DEPTNOTO"}, {{"S1"}}});
                      stage.finds(
                          "SELECT TOP 1 STKTRANHD.TRANNO FROM STKTRANHD INNER JOIN STKTRANDT"
                          " ON STKTRANHD.TRANNO=STKTRANDT.TRANNO WHERE STKTRANHD.DEPTNOTO='S1'"
                          " AND STKTRANHD.TRANTYPE='STK010POREV' AND STKTRANDT.PARTNO=''",
                          {{"TRANNO"}, {{"T0"}}});
                      stage.finds("Select * From STKTRANDT Where TRANNO='T1'  And SN=1", {{"SN"}, {{1}}});
                      stage.finds(
                          "Select STKTRANDT.* FROM STKTRANDT Where STKTRANDT.TRANNO='T1' AND STKTRANDT.SN>=1"
                          "  ORDER BY STKTRANDT.SN DESC ",
                          {{"SN"}, {{2}, {1}}});
                    },
                    insert(1)});
  const auto update = [](const Object& object, Fields& fields) {
    Value sn = 1;
    return object.call("UpdateRTN", "T1", ref(sn), ref(fields.names), ref(fields.values));
  };
  static const std::string row_query = "Select * From STKTRANDT Where TRANNO='T1' AND SN=1";
  scenes.push_back({"CTranDetail", "UpdateRTN", "",
                    [](Stage& stage) { stage.set("CanUpdate", 1).finds_nothing(row_query); }, update});
  scenes.push_back({"CTranDetail", "UpdateRTN", "owner",
                    [](Stage& stage) {
                      stage.finds_nothing(row_query);
                      owner(stage, "Select ADDBY from STKTRANDT WHERE TRANNO='T1'");
                    },
                    update});
}

void query_scenes(std::vector<Scene>& scenes) {
  scenes.push_back({"CTranDetail", "PORefQty", "",
                    [](Stage& stage) {
                      const std::string sum =
                          "Select STKTRANDT.REFERENCE,STKTRANDT.SN,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT "
                          "Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where "
                          "STKTRANDT.REFERENCE='PO1' AND STKTRANDT.SN=1 AND STKTRANHD.TRANTYPE=";
                      const std::string group = " Group By STKTRANDT.REFERENCE,STKTRANDT.SN";
                      stage.all_find_nothing(
                          {"Select STKTRANDT.TRANNO,STKTRANDT.SN,STKTRANDT.QTY As POQTY From STKTRANDT Inner "
                           "Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANDT.TRANNO='PO1' "
                           "AND STKTRANDT.SN=1 And STKTRANHD.STATUSSN=1",
                           sum + "'STK010POREV' And STKTRANHD.STATUSSN=1" + group,
                           sum + "'STK010PORTN' And STKTRANHD.STATUSSN=1 " + group});
                    },
                    [](const Object& object, Fields&) {
                      Value reference = "PO1", sn = 1, ordered = 0.0, received = 0.0, returned = 0.0;
                      return object.call("PORefQty", ref(reference), ref(sn), ref(ordered), ref(received),
                                         ref(returned));
                    }});
  scenes.push_back({"CTranDetail", "POExam", "",
                    [](Stage& stage) {
                      stage.finds_nothing("Select POHD.PONO From POHD Where POHD.PONO='N1'");
                      stage.finds(
                          "Select STKTRANHD.TRANNO From STKTRANHD Where STKTRANHD.TRANNO='N1'"
                          " And STKTRANHD.TRANTYPE='STK011PORTN'",
                          {{"TRANNO"}, {{"N1"}}});
                    },
                    [](const Object& object, Fields&) { return object.call("POExam", "N1"); },
                    stage::Outcome{2, 0, ""}});
  scenes.push_back({"CTranDetail", "OrderTypeExam", "",
                    [](Stage& stage) {
                      stage.finds_nothing("Select SOHD.SONO From SOHD Where SONO='N1'");
                      stage.finds("Select COHD.CONO From COHD Where COHD.CONO='N1'", {{"CONO"}, {{"N1"}}});
                    },
                    [](const Object& object, Fields&) {
                      const Value kind = object.call("OrderTypeExam", "N1");
                      return Value(kind == Value("MO") ? 100 : kind == Value("") ? 0 : -1);
                    }});
  scenes.push_back(
      {"CTranDetail", "GetMRPQty", "",
       [](Stage& stage) {
         // An order of production is looked for first; and parts have no bills.
         const std::string sum = "Select CODETAIL.PARTNO,SUM(";
         const std::string where =
             ") AS QTY From CODETAIL Inner Join COHD On CODETAIL.CONO=COHD.CONO Where "
             "CODETAIL.CONO='N1' And CODETAIL.PARTNO='P1' And COHD.STATUSSN=1";
         const std::string group = " Group By CODETAIL.PARTNO";
         stage.all_find_nothing(
             {sum + "CODETAIL.COQTY+CODETAIL.TEMPLETQTY" + where + group + " Union All " + sum +
                  "CODETAIL.COQTY" + where + " And CODETAIL.TEMPLETQTY Is Null" + group + " Union All " +
                  sum + "CODETAIL.TEMPLETQTY" + where + " And CODETAIL.COQTY Is Null" + group,
              std::string("Select ASSMBOM.ASSMNO,ASSMBOM.PARTNO,ASSMBOM.ENGQTY,ASSMBOM.URATE,"
                          "ASSMBOM.WSRATE From ASSMBOM Where ASSMBOM.ASSMNO In ('P1','p1')")});
         stage.finds(
             "Select SODTBOM.PARTNO,SODTBOM.SOQTY AS QTY From SODTBOM"
             " Where SODTBOM.SONO='N1'",
             {{"PARTNO", "QTY"}, {{"A", 2}}});
         stage.finds(
             "Select ASSMBOM.ASSMNO,ASSMBOM.PARTNO,ASSMBOM.ENGQTY,ASSMBOM.URATE,"
             "ASSMBOM.WSRATE From ASSMBOM Where ASSMBOM.ASSMNO In ('A')",
             {{"ASSMNO", "PARTNO", "ENGQTY", "URATE", "WSRATE"},
              {{"A", "P1", 3, 1, 0}, {"A", "p1", 1, 1, 0}}});
         stage.finds("Select PARTS.PARTNO From PARTS Where PARTS.PARTNO='P1' And PARTS.PARTNO='p1'",
                     {{"PARTNO"}, {{"P1"}}});
       },
       [](const Object& object, Fields&) {
         Value part = "P1";
         return object.call("GetMRPQty", "N1", ref(part));
       },
       stage::Outcome{8, 0, ""}});
}

}  // namespace

std::vector<Scene> transaction_scenes() {
  std::vector<Scene> scenes;
  header_scenes(scenes);
  line_scenes(scenes);
  return_line_scenes(scenes);
  query_scenes(scenes);
  return scenes;
}

}  // namespace tallyra::faults
