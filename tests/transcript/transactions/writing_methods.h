#pragma once

#include <string>
#include <vector>

#include "tests/transcript/transactions/transaction_script.h"

// Every method of CTranHead and CTranDetail that writes, for what holds of all of them or of most.
namespace tallyra::transactions_test {

struct WritingMethod {
  const char* name;
  const char* class_name;
  const char* right;
  bool takes_fields;
  std::string owner_query;  // empty where owning gives no right
  std::string row_query;    // what it looks for before it writes; empty where it looks for nothing
  Outcome (*play)(const Object& object, Fields& fields);
};

inline const std::vector<WritingMethod>& writing_methods() {
  static const std::string line_owner =
      "Select ADDBY from STKTRANDT WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND "
      "STKTRANDT.SN=7";
  static const std::vector<WritingMethod> methods{
      {"header's Update", "CTranHead", "CanUpdate", true,
       "Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='T1' AND STKTRANHD.TRANTYPE='X'", "",
       [](const Object& object, Fields& fields) { return update_head(object, "T1", "X", fields); }},
      {"header's Insert", "CTranHead", "CanInsert", true, "", "Select * From STKTRANHD where TRANNO='T1'",
       [](const Object& object, Fields& fields) { return insert_head(object, "T1", "X", fields, "T0"); }},
      {"header's Delete", "CTranHead", "CanDelete", false, "Select ADDBY from STKTRANHD WHERE TRANNO='T1'",
       "", [](const Object& object, Fields&) { return delete_head(object, "T1", "X"); }},
      {"line's Update", "CTranDetail", "CanUpdate", true, line_owner, "",
       [](const Object& object, Fields& fields) {
         return write_line(object, "Update", {.number = 7}, fields);
       }},
      {"line's Insert", "CTranDetail", "CanInsert", true, "",
       "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T1' And STKTRANDT.REFERENCE='PO1' And "
       "STKTRANDT.SN=7",
       [](const Object& object, Fields& fields) {
         return write_line(object, "Insert", {.number = 7}, fields);
       }},
      {"line's Delete", "CTranDetail", "CanDelete", false, line_owner, "",
       [](const Object& object, Fields&) { return delete_line(object, {.number = 7}); }},
      {"InsertRTN", "CTranDetail", "CanInsert", true, "", "",
       [](const Object& object, Fields& fields) { return insert_return(object, "T1", 7, fields); }},
      {"UpdateRTN", "CTranDetail", "CanUpdate", true, "Select ADDBY from STKTRANDT WHERE TRANNO='T1'",
       "Select * From STKTRANDT Where TRANNO='T1' AND SN=7",
       [](const Object& object, Fields& fields) { return update_return(object, "T1", 7, fields); }},
  };
  return methods;
}

// An object to play the method on: nothing is found that it asks for and that the stage is not told about.
inline Object client_for(const WritingMethod& method, Stage& stage) {
  for (const auto& query : {method.owner_query, method.row_query})
    if (!query.empty()) stage.finds_nothing(query);
  return stage.client(method.class_name);
}

}  // namespace tallyra::transactions_test
