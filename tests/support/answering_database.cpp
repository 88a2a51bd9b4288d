#include "tests/support/answering_database.h"

#include "tests/support/ado_double.h"

namespace tallyra::stage {
namespace {

using automation::Object;

Rows rows_of(const Reply& reply) {
  Rows found;
  if (reply.rows.empty()) return found;
  for (const auto& [column, value] : reply.rows.front()) found.columns.push_back(column);
  for (const Row& row : reply.rows) {
    found.rows.emplace_back();
    for (const auto& column : found.columns) found.rows.back().push_back(row.at(column));
  }
  return found;
}

}  // namespace

AnsweringDatabase::AnsweringDatabase(Answer answer)
    : answer_(std::move(answer)),
      connections_("ADODB.Connection", [this] { return automation::make_object<ConnectionDouble>(*this); }),
      recordsets_("ADODB.Recordset", [this] { return automation::make_object<RecordsetDouble>(*this); }) {}

Object AnsweringDatabase::connection() {
  const std::string before = log();
  const Object connection = automation::make_object<ConnectionDouble>(*this);
  connection.call("Open", "DSN=x");
  const std::lock_guard lock(mutex_);
  log_ = before;
  return connection;
}

std::string AnsweringDatabase::log() const {
  const std::lock_guard lock(mutex_);
  return log_;
}

std::vector<std::string> AnsweringDatabase::statements() const {
  const std::lock_guard lock(mutex_);
  return statements_;
}

void AnsweringDatabase::step(const std::string& line, Line kind) {
  {
    const std::lock_guard lock(mutex_);
    if (kind == Line::shown) log_ += line + '\n';
  }
  if (at_call) at_call(line);
}

Reply AnsweringDatabase::reply_to(const std::string& statement) {
  {
    const std::lock_guard lock(mutex_);
    statements_.push_back(statement);
  }
  return answer_(statement);
}

const Rows& AnsweringDatabase::opened(const std::string& statement) {
  Rows found = rows_of(reply_to(statement));
  const std::lock_guard lock(mutex_);
  return told_.emplace_back(std::move(found));
}

AdoScript::Executed AnsweringDatabase::executed(const std::string& statement) {
  const Reply reply = reply_to(statement);
  return {reply.affected, rows_of(reply)};
}

Object recordset_on(AdoScript& script, Rows rows) {
  Object recordset = automation::make_object<RecordsetDouble>(script);
  static_cast<RecordsetDouble*>(recordset.dispatch())->stand_on(std::move(rows));
  return recordset;
}

}  // namespace tallyra::stage
