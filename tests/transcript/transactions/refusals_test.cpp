#include <functional>

#include "tests/transcript/transactions/transaction_script.h"

// Every refusal first fetches its text and then closes what is open, the recordset before the connection.
namespace tallyra::transactions_test {
namespace {

const std::string nothing_open =
    "create ADODB.Connection\n"
    "create ADODB.Recordset\n";

struct Refusal {
  const char* name;
  const char* class_name;
  double number;
  std::function<void(Stage&)> set;
  std::function<Outcome(const Object&, Fields&)> play;
  // What the transcript ends in, or all of it when nothing was opened.
  std::string end;
};

const std::string fields_refused = nothing_open + "messages.Msg10000002\n";
const std::string all_closed = "R2.Close\nC2.Close\n";

Outcome write_by_number(const Object& object, const char* member, Fields& fields) {
  return write_line(object, member, {.number = 7}, fields);
}

const Refusal refusals[] = {
    {"header's Update", "CTranHead", 10000002, [](Stage&) {},
     [](const Object& object, Fields&) {
       Fields none;
       return update_head(object, "T1", "X", none, "APPROVED");
     },
     fields_refused},
    {"header's Insert", "CTranHead", 10000002, [](Stage&) {},
     [](const Object& object, Fields&) {
       Fields none;
       return insert_head(object, "T1", "X", none);
     },
     fields_refused},
    {"line's Update", "CTranDetail", 10000002, [](Stage&) {},
     [](const Object& object, Fields&) {
       Fields none;
       return write_by_number(object, "Update", none);
     },
     fields_refused},
    {"InsertRTN", "CTranDetail", 10000002, [](Stage&) {},
     [](const Object& object, Fields&) {
       Fields none;
       return insert_return(object, "T1", 1, none, 1);
     },
     fields_refused},
    {"header's tag", "CTranHead", 10000016, [](Stage&) {},
     [](const Object& object, Fields& fields) { return update_head(object, "T1", "X", fields, "APPROVED"); },
     nothing_open + "rights.PowerCheck 'X'\nrights.CanApproved\nmessages.Msg10000016\n"},
    {"header's edit", "CTranHead", 10000016, [](Stage&) {},
     [](const Object& object, Fields& fields) { return update_head(object, "T1", "X", fields); },
     nothing_open + "rights.PowerCheck 'X'\nrights.CanUpdate\nrights.Owner\nmessages.Msg10000016\n"},
    {"header's number", "CTranHead", 10000004,
     [](Stage& stage) {
       stage.set("CanInsert", 1).finds("Select * From STKTRANHD where TRANNO='T1'", {{"TRANNO"}, {{"T1"}}});
     },
     [](const Object& object, Fields& fields) { return insert_head(object, "T1", "X", fields); },
     "messages.Msg10000004\n" + all_closed},
    {"header's owner", "CTranHead", 10000016,
     [](Stage& stage) {
       stage.set("Owner", 1).finds("Select ADDBY from STKTRANHD WHERE TRANNO='T1'", {{"ADDBY"}, {{"OTHER"}}});
     },
     [](const Object& object, Fields&) { return delete_head(object, "T1", "X"); },
     "messages.Msg10000016\n" + all_closed},
    {"line's address", "CTranDetail", 10000004,
     [](Stage& stage) {
       stage.set("CanInsert", 1)
           .finds(
               "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T1' And "
               "STKTRANDT.REFERENCE='PO1' "
               "And STKTRANDT.SN=7",
               {{"SN"}, {{7}}});
     },
     [](const Object& object, Fields& fields) { return write_by_number(object, "Insert", fields); },
     "messages.Msg10000004\n" + all_closed},
    {"receipt", "CTranDetail", 10000115,
     [](Stage& stage) {
       stage.set("CanInsert", 1)
           .finds_nothing(
               "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS ON STKTRANHD.DEPTNOTO "
               "=SUPPLIERS  WHERE STKTRANHD.TRANNO='T1'")
           .finds_nothing(
               "SELECT TOP 1 STKTRANHD.TRANNO FROM STKTRANHD INNER JOIN STKTRANDT ON "
               "STKTRANHD.TRANNO=STKTRANDT.TRANNO WHERE STKTRANHD.DEPTNOTO='' AND "
               "STKTRANHD.TRANTYPE='STK010POREV' AND STKTRANDT.PARTNO=''");
     },
     [](const Object& object, Fields& fields) { return insert_return(object, "T1", 1, fields, 1); },
     "messages.Msg10000115\n" + all_closed},
    {"return's owner", "CTranDetail", 10000016,
     [](Stage& stage) {
       stage.set("Owner", 1).finds("Select ADDBY from STKTRANDT WHERE TRANNO='T1'", {{"ADDBY"}, {{"OTHER"}}});
     },
     [](const Object& object, Fields&) {
       // A line number that is none is not looked at any more.
       Fields line{{"SN", "x"}};
       return update_return(object, "T1", 7, line);
     },
     "messages.Msg10000016\n" + all_closed},
};

TEST(Refusals, FetchTheirTextBeforeAnythingIsClosed) {
  for (const auto& refusal : refusals) {
    Stage stage;
    const Object object = stage.client(refusal.class_name);
    Fields fields{{"QTY", 5}};
    // So that the collaborators are set up.
    if (refusal.class_name == std::string("CTranHead"))
      delete_head(object, "T1", "X");
    else
      delete_line(object, {});
    stage.clear();
    refusal.set(stage);
    EXPECT_EQ(refusal.play(object, fields), refused(refusal.number)) << refusal.name;
    if (refusal.end.starts_with("create"))
      EXPECT_EQ(stage.transcript(), refusal.end) << refusal.name;
    else
      EXPECT_TRUE(stage.transcript().ends_with(refusal.end)) << refusal.name << "\n" << stage.transcript();
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
