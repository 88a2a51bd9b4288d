#include "tests/faults/scene.h"
#include "tests/support/outcome.h"
#include "tests/support/queries.h"
#include "tests/support/record_methods.h"

namespace tallyra::faults {
namespace {

using automation::Date;
using automation::Null;
using automation::Object;
using stage::Fields;
using stage::Stage;

auto with_head(const char* member) {
  return [member](const Object& object, Fields& fields) {
    return stage::call_record(object, member, "S1", fields);
  };
}

auto update_head(const char* tag) {
  return [tag](const Object& object, Fields& fields) {
    return stage::call_record(object, "Update", "S1", fields, tag);
  };
}

auto with_line(const char* member) {
  return [member](const Object& object, Fields& fields) {
    return stage::call_record(object, member, "S1", "P1", fields);
  };
}

void own_header(Stage& stage, const char* condition) {
  stage.set("Owner", 1)
      .finds("Select ADDBY from STKCHECKHD WHERE " + std::string(condition) + "='S1'",
             {{"ADDBY"}, {{"TESTER"}}});
}

// An owner test that finds no header lets the user through.
void own_nothing(Stage& stage) {
  stage.set("Owner", 1)
      .finds_nothing("Select ADDBY from STKCHECKHD WHERE CHECKNO='S1'")
      .finds_nothing("Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='S1'");
}

// A part short, one without difference, one without quantity, one over.
void counted_sheet(Stage& stage) {
  stage.set("CanApproved", 1).set("wording.StatusApproved", "Approved").set("wording.NameCheck", "Counted");
  stage.finds(stage::counted_lines, {{"CHECKDT", "PARTNO", "QTY", "UPRICE", "DEPTNO", "DEPTNM"},
                                     {{Date{45382}, "A", 1.0, 1.0, "10", "Store"},
                                      {Date{45382}, "B", 0.0, 1.0, "10", "Store"},
                                      {Date{45382}, "C", Null{}, 1.0, "10", "Store"},
                                      {Date{45382}, "D", 5.0, Null{}, "10", "Store"}}});
  stage.finds(stage::close_until("#2024/03/31#"), {{"CLOSEDT"}, {{Date{45351}}}});
  for (const char* part : {"A", "B", "C", "D"})
    stage.all_find_nothing({stage::part_out(part, "#2024/02/29#", "#2024/03/31#"),
                            stage::part_in(part, "#2024/02/29#", "#2024/03/31#")});
  stage.finds(stage::part_out("A", "#2024/02/29#", "#2024/03/31#"), {{"QTY"}, {{3.0}}});
}

void add_head(std::vector<Scene>& scenes) {
  const auto remove = [](const Object& object, Fields&) {
    return stage::call_record(object, "Delete", "S1");
  };
  static const std::string row_query = "Select STKCHECKHD.* From STKCHECKHD Where STKCHECKHD.CHECKNO='S1'";
  const auto found = [](Stage& stage) { stage.finds(row_query, {{"CHECKNO", "NOTES"}, {{"S1", Null{}}}}); };
  scenes.push_back({"CCheckHead", "Read", "found", found, with_head("Read")});
  scenes.push_back({"CCheckHead", "Read", "missing", [](Stage& stage) { stage.finds_nothing(row_query); },
                    with_head("Read")});
  scenes.push_back({"CCheckHead", "Insert", "",
                    [](Stage& stage) {
                      stage.set("CanInsert", 1).finds_nothing("Select * From STKCHECKHD where CHECKNO='S1'");
                    },
                    with_head("Insert")});
  scenes.push_back({"CCheckHead", "Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); }, remove});
  scenes.push_back(
      {"CCheckHead", "Delete", "owner", [](Stage& stage) { own_header(stage, "CHECKNO"); }, remove});
  scenes.push_back({"CCheckHead", "Delete", "owner_without_header", own_nothing, remove});
  scenes.push_back({"CCheckHead", "Update", "owner_without_header", own_nothing, update_head("")});
  scenes.push_back(
      {"CCheckHead", "Update", "edit", [](Stage& stage) { stage.set("CanUpdate", 1); }, update_head("")});
  scenes.push_back({"CCheckHead", "Update", "owner",
                    [](Stage& stage) { own_header(stage, "STKCHECKHD.CHECKNO"); }, update_head("")});
  scenes.push_back({"CCheckHead", "Update", "unapproved", [](Stage& stage) { stage.set("CanUnapproved", 1); },
                    update_head("UNAPPROVED")});
  scenes.push_back({"CCheckHead", "Update", "approved_without_lines",
                    [](Stage& stage) { stage.set("CanApproved", 1).finds_nothing(stage::counted_lines); },
                    update_head("APPROVED")});
  // The posting has committed what the method then commits again, which ADO reports as an error.
  scenes.push_back({"CCheckHead", "Update", "approved", counted_sheet, update_head("APPROVED"),
                    stage::trapped(-2147168242, "No transaction is active.")});
}

void add_detail(std::vector<Scene>& scenes) {
  const auto remove = [](const Object& object, Fields&) {
    return stage::call_record(object, "Delete", "S1", "P1");
  };
  static const std::string row_query =
      "Select STKCHECKDT.*,PARTS.PARTNM,PARTS.COLORNO,PARTS.COLORNM,PARTS.UNITNM From STKCHECKDT INNER JOIN "
      "PARTS ON STKCHECKDT.PARTNO=PARTS.PARTNO  Where STKCHECKDT.CHECKNO='S1' And STKCHECKDT.PartNo='P1' ";
  const auto found = [](Stage& stage) { stage.finds(row_query, {{"CHECKNO", "QTY"}, {{"S1", 2.5}}}); };
  const auto known_part = [](Stage& stage) {
    stage.set("CanInsert", 1)
        .finds_nothing("Select * From STKCHECKDT Where CHECKNO='S1' And PartNo='P1' ")
        .finds("Select PARTNO from PARTS WHERE PARTS.PARTNO='P1'", {{"PARTNO"}, {{"P1"}}});
  };
  scenes.push_back({"CCheckDetail", "Read", "found", found, with_line("Read")});
  scenes.push_back({"CCheckDetail", "Read", "missing", [](Stage& stage) { stage.finds_nothing(row_query); },
                    with_line("Read")});
  scenes.push_back({"CCheckDetail", "Insert", "", known_part, with_line("Insert")});
  scenes.push_back(
      {"CCheckDetail", "Update", "", [](Stage& stage) { stage.set("CanUpdate", 1); }, with_line("Update")});
  scenes.push_back({"CCheckDetail", "Update", "owner",
                    [](Stage& stage) { own_header(stage, "STKCHECKHD.CHECKNO"); }, with_line("Update")});
  scenes.push_back({"CCheckDetail", "Update", "owner_without_header", own_nothing, with_line("Update")});
  scenes.push_back({"CCheckDetail", "Delete", "owner_without_header", own_nothing, remove});
  scenes.push_back({"CCheckDetail", "Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); }, remove});
  scenes.push_back(
      {"CCheckDetail", "Delete", "owner", [](Stage& stage) { own_header(stage, "CHECKNO"); }, remove});
}

}  // namespace

std::vector<Scene> stockcheck_scenes() {
  std::vector<Scene> scenes;
  add_head(scenes);
  add_detail(scenes);
  return scenes;
}

}  // namespace tallyra::faults
