#include "tests/faults/scene.h"
#include "tests/support/queries.h"
#include "tests/support/record_methods.h"

namespace tallyra::faults {
namespace {

using automation::Date;
using automation::Object;
using stage::Fields;
using stage::Stage;

const std::vector<std::string> quantities{"PARTNO", "QTY"};

// Parts before, between, equal and behind, so that every way through the merge is taken.
void department_moves(Stage& stage, const std::string& after) {
  stage.finds(stage::department_out("10", after, "#2024/03/31#"), {quantities, {{"B", 1.0}, {"D", 2.0}}});
  stage.finds(stage::department_in("10", after, "#2024/03/31#"),
              {quantities, {{"A", 1.0}, {"B", 1.0}, {"C", 1.0}, {"E", 1.0}}});
}

void company_documents(Stage& stage, const std::string& date) {
  stage.finds(
      stage::department_documents(date),
      {{"MTYPESN", "PARTNO", "PRICETYPESN", "EDITDT", "QTY"},
       {{2, "A", 2, Date{45000}, 1.0}, {1, "B", 1, Date{45000}, 1.0}, {1, "C", 0, Date{45000}, 1.0}}});
  stage.set("system.GetPartCost", 1.5).set("system.GetLastUprice", 1.5).set("system.GetAvgUprice", 1.5);
}

void company(Stage& stage) {
  stage.set("CanInsert", 1);
  stage.finds_nothing(stage::close_of("#2024/03/31#"));
  stage.finds(stage::close_before("#2024/03/31#"), {{"CLOSEDT"}, {{Date{45351}}}});
  stage.finds(stage::departments, {{"DEPTNO", "DEPTNM"}, {{"10", "Store"}}});
  department_moves(stage, "#2024/02/29#");
  company_documents(stage, "#2024/04/01#");
}

// The settings of a material type, with the right for everything.
void add_cost_settings(std::vector<Scene>& scenes) {
  const auto all_rights = [](Stage& stage) {
    stage.set("CanInsert", 1).set("CanUpdate", 1).set("CanDelete", 1);
    stage.finds("Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=7",
                {{"MTYPESN", "COSTMETHOD"}, {{7, 1}}});
    stage.finds_nothing("Select * From PARTCOSTSET where MTYPESN=7");
  };
  for (const char* member : {"Read", "Insert", "Update"})
    scenes.push_back({"CPartCostSet", member, "", all_rights, [member](const Object& object, Fields& fields) {
                        return stage::call_record(object, member, 7, fields);
                      }});
  scenes.push_back({"CPartCostSet", "Delete", "", all_rights,
                    [](const Object& object, Fields&) { return stage::call_record(object, "Delete", 7); }});
}

std::vector<Scene> month_close_scenes() {
  const std::string row_query = "Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT=#2024/03/31#";
  return {
      {"CStockClose", "Read", "",
       [row_query](Stage& stage) {
         stage.finds(row_query, {{"CLOSEDT", "STATUSSN"}, {{Date{45382}, 0}}});
       },
       [](const Object& object, Fields& fields) {
         return stage::call_record(object, "Read", "2024/03/31", fields);
       },
       std::nullopt, true},
      {"CStockClose", "Update", "", [](Stage& stage) { stage.set("CanApproved", 1); },
       [](const Object& object, Fields& fields) {
         return stage::call_record(object, "Update", "2024/03/31", fields, "APPROVED");
       }},
      {"CStockClose", "Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); },
       [](const Object& object, Fields&) { return stage::call_record(object, "Delete", "2024/03/31"); }},
      {"CStockClose", "Insert", "", company,
       [](const Object& object, Fields& fields) {
         return stage::call_record(object, "Insert", "2024/03/31", fields);
       }},
      {"CStockClose", "STKMonthCloseDept", "", [](Stage& stage) { department_moves(stage, ""); },
       [](const Object& object, Fields&) {
         return stage::close_department(object, "K1", "#2024/03/31#", "10");
       }},
      {"CStockClose", "STKMonthClose", "", [](Stage& stage) { company_documents(stage, ""); },
       [](const Object& object, Fields&) { return stage::close_company(object, "K1", "#2024/03/31#"); }},
  };
}

}  // namespace

std::vector<Scene> close_scenes() {
  std::vector<Scene> scenes = month_close_scenes();
  add_cost_settings(scenes);
  return scenes;
}

}  // namespace tallyra::faults
