#include "frame/connection.h"

#include "automation/convert.h"
#include "automation/create.h"

namespace tallyra::frame {
namespace {

constexpr std::int32_t state_open = 1;

}  // namespace

Connection::Connection() : object_(automation::create("ADODB.Connection")) {}

void Connection::set_command_timeout(std::int32_t seconds) {
  object_.put("CommandTimeout", seconds);
}

void Connection::open(const std::string& connection_string) {
  object_.call("Open", connection_string, "", "", unspecified_options);
  opened_ = true;
}

bool Connection::is_open() const {
  return automation::equals_number(object_.get("State"), state_open);
}

void Connection::execute(const automation::Value& statement) {
  automation::Value records_affected;
  execute_.of(object_).call(statement, automation::ref(records_affected), unspecified_options);
}

void Connection::begin() {
  object_.call("BeginTrans");
}

void Connection::commit() {
  object_.call("CommitTrans");
}

void Connection::roll_back() {
  object_.call("RollbackTrans");
}

void Connection::close() {
  object_.call("Close");
  opened_ = false;
}

}  // namespace tallyra::frame
