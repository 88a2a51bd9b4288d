#include "tests/faults/scene.h"
#include "tests/support/record_methods.h"

namespace tallyra::faults {
namespace {

using automation::Object;
using stage::Fields;
using stage::Stage;

struct KeyRecord {
  const char* class_name;
  std::string row_query;
  std::string key_query;
  std::string update_owner_query;
  std::string delete_owner_query;
};

// A user who may change only rows of their own, and the row found is the named user's.
auto owned_by(const char* user, const std::string& owner_query) {
  return [user, owner_query](Stage& stage) {
    stage.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{user}}});
  };
}

void add_key_record(std::vector<Scene>& scenes, const KeyRecord& record) {
  const auto with_fields = [](const char* member) {
    return [member](const Object& object, Fields& fields) {
      return stage::call_record(object, member, "A1", fields);
    };
  };
  const auto remove = [](const Object& object, Fields&) {
    return stage::call_record(object, "Delete", "A1");
  };
  const auto add = [&](const char* member, const char* branch, auto prepare,
                       std::optional<stage::Outcome> reported = std::nullopt) {
    Scene scene{record.class_name, member, branch, prepare, with_fields(member), reported};
    if (scene.member == "Delete") scene.call = remove;
    scenes.push_back(std::move(scene));
  };
  add("Read", "found", [query = record.row_query](Stage& stage) {
    stage.finds(query, {{"A", "B"}, {{"A1", 1}}});
  });
  scenes.back().appends = true;
  add("Read", "missing", [query = record.row_query](Stage& stage) { stage.finds_nothing(query); });
  add("Insert", "",
      [query = record.key_query](Stage& stage) { stage.set("CanInsert", 1).finds_nothing(query); });
  add("Update", "", [](Stage& stage) { stage.set("CanUpdate", 1); });
  add("Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); });
  // Owners are let in and end at the second opening of the connection that the owner test has opened.
  const auto opened_twice = stage::trapped(3705, "Operation is not allowed when the object is open.");
  add("Update", "owner", owned_by("TESTER", record.update_owner_query), opened_twice);
  add("Delete", "owner", owned_by("TESTER", record.delete_owner_query), opened_twice);
  add("Update", "owned_by_another", owned_by("OTHER", record.update_owner_query), stage::refused(10000016));
  add("Delete", "owned_by_another", owned_by("OTHER", record.delete_owner_query), stage::refused(10000016));
}

}  // namespace

std::vector<Scene> masterdata_scenes() {
  std::vector<Scene> scenes;
  add_key_record(
      scenes,
      {"CRevAddr", "Select * From REVADDR Where AddrNo='A1'", "Select * From REVADDR where AddrNo='A1'",
       "Select ADDBY from REVADDR WHERE ADDRNO='A1'", "Select ADDBY from REVADDR WHERE ADDRNO='A1'"});
  add_key_record(scenes, {"CSTKController", "Select * From STKCONTROLLER Where CONTROLLERNO='A1'",
                          "Select * From STKCONTROLLER where CONTROLLERNO='A1'",
                          "Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='A1'",
                          "Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='A1'"});
  add_key_record(scenes,
                 {"CStkShipNote", "Select STKSHIPNOTE.* From STKSHIPNOTE Where STKSHIPNOTE.TRANNO='A1'",
                  "Select * From STKSHIPNOTE where TRANNO='A1'",
                  "Select ADDBY from STKSHIPNOTE WHERE STKSHIPNOTE.TRANNO='A1' AND "
                  "STKSHIPNOTE.TRANTYPE='STK030SHIPN'",
                  "Select ADDBY from STKSHIPNOTE WHERE TRANNO='A1'"});
  return scenes;
}

}  // namespace tallyra::faults
