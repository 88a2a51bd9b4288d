#include "tests/support/company_database.h"

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/folded_name.h"
#include "frame/collaborators.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"

namespace tallyra::behaviour {

using automation::Object;
using automation::Value;

CompanyDatabase::CompanyDatabase(std::string system_database, int lock_wait)
    : engine_(CompanyEngine::create(lock_wait)),
      connection_string_(engine_->connection_string()),
      system_database_(std::move(system_database)) {
  server::register_classes();
  standins::ado::register_classes();
  standins::corvane::register_classes();
  standins::lexbank::register_classes();
  run(engine_->schema());
  run({"INSERT INTO USERRIGHTS VALUES('ADMIN','*',1,1,1,1,1,1,1,1)"});
}

CompanyDatabase::~CompanyDatabase() {
  frame::collaborators() = {};
}

void CompanyDatabase::run(const std::vector<std::string>& statements) const {
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", connection_string_);
  for (const auto& statement : statements) connection.call("Execute", statement);
}

void CompanyDatabase::add_a_record_of_each_class() const {
  run({
      "INSERT INTO REVADDR(ADDRNO) VALUES('X1')",
      "INSERT INTO PARTS(PARTNO) VALUES('X1')",
      "INSERT INTO STKCONTROLLER(CONTROLLERNO) VALUES('X1')",
      "INSERT INTO STKSHIPNOTE(TRANNO) VALUES('X1')",
      "INSERT INTO STKTRANHD(TRANNO,TRANTYPE) VALUES('X1','X1')",
      "INSERT INTO STKTRANDT(TRANNO,REFERENCE,PARTNO,SN) VALUES('X1','X1','X1',1)",
      "INSERT INTO STKCHECKHD(CHECKNO) VALUES('X1')",
      "INSERT INTO STKCHECKDT(CHECKNO,PARTNO) VALUES('X1','X1')",
      "INSERT INTO PARTCOSTSET(MTYPESN) VALUES(1)",
      "INSERT INTO STKCLOSEHD(CLOSEDT) VALUES('2024-01-31 00:00:00')",
  });
}

std::string CompanyDatabase::rows(const std::string& query) const {
  const Object recordset = automation::create("ADODB.Recordset");
  recordset.call("Open", query, connection_string_);
  std::string text;
  const Object fields = automation::to_object(recordset.get("Fields"));
  const auto count = automation::to_int32(fields.get("Count"));
  for (; !automation::to_boolean(recordset.get("EOF")); recordset.call("MoveNext")) {
    for (std::int32_t i = 0; i < count; ++i) {
      const Value value = automation::to_object(fields.call("Item", i)).get("Value");
      if (i) text += '|';
      text += value.is_null() ? "NULL" : automation::to_text(value);
    }
    text += '\n';
  }
  return text;
}

void CompanyDatabase::refuse(const std::string& name, const std::string& event, const std::string& table,
                             const std::string& condition, const std::string& message) const {
  engine_->make_trigger(name, event, table, condition, message);
}

void CompanyDatabase::allow(const std::string& name, const std::string& table) const {
  run({"DROP TRIGGER " + name + (is_sqlite() ? "" : " ON " + table)});
}

void CompanyDatabase::grant(const std::string& user, const std::string& rights) const {
  std::string ones;
  for (std::size_t i = 0; i < rights.size(); ++i)
    if (i == 0 || rights[i] == ',') ones += ",1";
  run({"INSERT INTO USERRIGHTS(USERID,FUNCCODE," + rights + ") VALUES('" + user + "','*'" + ones + ")"});
}

bool names(std::string_view sentence, std::string_view name) {
  return automation::folded(sentence).find(automation::folded(name)) != std::string::npos;
}

Object CompanyDatabase::client(std::string_view class_name, std::string_view user) const {
  Object object = automation::create("Tallyra." + std::string(class_name));
  object.put("ConnectionString", connection_string_);
  object.put("UserID", user);
  object.put("Language", "EN");
  object.put("SystemDatabase", system_database_);
  return object;
}

}  // namespace tallyra::behaviour
