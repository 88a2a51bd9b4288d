#include "tests/transcript/frame/record_script.h"

namespace tallyra::records {

using automation::Argument;

std::vector<Setting> settings(bool (*condition)(const RecordClass&)) {
  std::vector<Setting> list;
  for (const char* kind : {"MSACCESS", "MSSQLSERVER", ""})
    for (const auto& record : record_classes(kind))
      if (condition(record)) list.push_back({record, kind});
  return list;
}

Object RecordTest::client(Stage& on) const {
  for (const auto& statement :
       {record.row_query, record.key_query, record.known_query, record.structure.statement,
        record.update_owner.statement, record.delete_owner.statement})
    if (!statement.empty()) on.finds_nothing(statement);
  return on.client(record.class_name);
}

Outcome RecordTest::play(const Object& object, std::string_view member, std::vector<Value>& keys,
                         bool keys_by_reference) {
  std::vector<Argument> arguments;
  for (auto& key : keys) arguments.push_back(keys_by_reference ? Argument::by_reference(key) : Argument(key));
  if (member != "Delete") {
    arguments.push_back(Argument::by_reference(fields.names));
    arguments.push_back(Argument::by_reference(fields.values));
  }
  Value operation = tag.value_or("");
  if (member == "Update" && (tag || record.update_tag == RecordClass::tag_is_needed))
    arguments.push_back(Argument::by_reference(operation));
  return outcome_of(object, object.invoke(object.resolve(member), automation::Access::read, arguments));
}

void RecordTest::grant_everything(Stage& to) const {
  to.set("CanInsert", 1).set("CanUpdate", 1).set("CanDelete", 1);
  let_insert_look_up(to);
}

void RecordTest::let_insert_look_up(Stage& on) const {
  if (!record.known_query.empty()) on.finds(record.known_query, {{"COLUMN"}, {{"x"}}});
}

std::string RecordTest::opened(const Query& query) {
  return std::string(query.location == Query::server ? "R1.CursorLocation = 2\n" : "") + "R1.Open " +
         query.statement + " | C1 " + std::to_string(query.cursor) + " 1 -1\n";
}

std::string RecordTest::existence_test() const {
  return (!record.known_query.empty()
              ? opened({record.known_query, Query::fixed, Query::as_it_is}) + "R1.Close\n"
              : "") +
         opened({record.key_query, Query::fixed, Query::server}) + "R1.Close\n";
}

std::string RecordTest::insert_calls() const {
  return existence_test() + (record.insert_in_transaction ? "C1.BeginTrans\n" : "") +
         "C1.Execute <GetInsertSQL " + record.table + "> | -1\n" +
         (record.insert_in_transaction ? "C1.CommitTrans\n" : "") + "C1.Close\n";
}

std::string RecordTest::update_calls() const {
  std::string also_updated;
  for (const auto& statement : record.also_updated) also_updated += "C1.Execute " + statement + " | -1\n";
  return opened(record.structure) + "R1.Close\n" + (record.update_in_transaction ? "C1.BeginTrans\n" : "") +
         "C1.Execute <GetUpdateSQL " + record.table + ">" + record.condition + " | -1\n" + also_updated +
         (record.update_in_transaction ? "C1.CommitTrans\n" : "") + "C1.Close\n";
}

std::string RecordTest::delete_calls() const {
  std::string calls = "C1.BeginTrans\n";
  for (const auto& removal : record.removals) calls += "C1.Execute " + removal + " | -1\n";
  return calls + "C1.CommitTrans\nC1.Close\n";
}

std::string RecordTest::failing_at(const std::string& call, const std::string& calls) {
  return calls.substr(0, calls.find('\n', calls.find(call))) + " ! locked\n";
}

}  // namespace tallyra::records
