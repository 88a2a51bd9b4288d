#include "tests/support/company_database.h"

#include <fstream>

#include "automation/convert.h"
#include "automation/create.h"
#include "company/schema_script.h"
#include "frame/collaborators.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"

namespace tallyra::behaviour {

using automation::Object;
using automation::Value;

CompanyDatabase::CompanyDatabase(std::string system_database, int lock_wait)
    : file_(folder_.file("company.db")), system_database_(std::move(system_database)) {
  server::register_classes();
  standins::ado::register_classes();
  standins::corvane::register_classes();
  standins::lexbank::register_classes();
  // What a test writes need not survive a power cut.
  connection_string_ = "DRIVER={SQLite3};Database=" + file_.generic_string() +
                       ";SyncPragma=OFF;Timeout=" + std::to_string(lock_wait);
  std::ofstream(file_, std::ios::app);  // a database without tables
  run(samples::company::read_schema(TALLYRA_SCHEMA));
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

void CompanyDatabase::grant(const std::string& user, const std::string& rights) const {
  std::string ones;
  for (std::size_t i = 0; i < rights.size(); ++i)
    if (i == 0 || rights[i] == ',') ones += ",1";
  run({"INSERT INTO USERRIGHTS(USERID,FUNCCODE," + rights + ") VALUES('" + user + "','*'" + ones + ")"});
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
