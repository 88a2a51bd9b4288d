#include "tests/faults/scene.h"

namespace tallyra::faults {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;
using stage::Stage;

Value call_with_key(const Object& object, const char* member, Fields& fields) {
  Value key = "A1";
  return object.call(member, ref(key), ref(fields.names), ref(fields.values));
}

void add_key_record(std::vector<Scene>& scenes, const char* class_name, const std::string& row_query) {
  scenes.push_back(
      {class_name, "Read", "found",
       [row_query](Stage& stage) {
         stage.finds(row_query, {{"A", "B"}, {{"A1", 1}}});
       },
       [](const Object& object, Fields& fields) { return call_with_key(object, "Read", fields); }});
  scenes.push_back(
      {class_name, "Read", "missing", [](Stage&) {},
       [](const Object& object, Fields& fields) { return call_with_key(object, "Read", fields); }});
  scenes.push_back(
      {class_name, "Insert", "", [](Stage& stage) { stage.set("CanInsert", 1); },
       [](const Object& object, Fields& fields) { return call_with_key(object, "Insert", fields); }});
  scenes.push_back(
      {class_name, "Update", "", [](Stage& stage) { stage.set("CanUpdate", 1); },
       [](const Object& object, Fields& fields) { return call_with_key(object, "Update", fields); }});
  scenes.push_back({class_name, "Delete", "", [](Stage& stage) { stage.set("CanDelete", 1); },
                    [](const Object& object, Fields&) {
                      Value key = "A1";
                      return object.call("Delete", ref(key));
                    }});
}

}  // namespace

std::vector<Scene> masterdata_scenes() {
  std::vector<Scene> scenes;
  add_key_record(scenes, "CRevAddr", "Select * From REVADDR Where AddrNo='A1'");
  add_key_record(scenes, "CSTKController", "Select * From STKCONTROLLER Where CONTROLLERNO='A1'");
  add_key_record(scenes, "CStkShipNote",
                 "Select STKSHIPNOTE.* From STKSHIPNOTE Where STKSHIPNOTE.TRANNO='A1'");
  return scenes;
}

}  // namespace tallyra::faults
