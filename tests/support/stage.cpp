#include "tests/support/stage.h"

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "automation/convert.h"
#include "automation/create.h"
#include "frame/collaborators.h"
#include "server/local_classes.h"
#include "tests/support/ado_double.h"
#include "tests/support/collaborator_double.h"
#include "tests/support/printed_value.h"
#include "tests/support/statement_corpus.h"

namespace tallyra::stage {

using automation::Object;
using automation::Value;
using automation::local::ScopedClass;

Stage::Stage(std::string system_database, const std::vector<std::string>& finding_nothing)
    : system_database_(std::move(system_database)),
      clock_([] { return *automation::parse_date("2024/04/05 14:05:09"); }),
      yield_([this] {
        ++yields_;
        moment();
      }) {
  server::register_classes();
  const auto put_on_stage = [this](std::string_view prog_id, automation::local::Factory factory) {
    classes_.push_back(std::make_unique<ScopedClass>(prog_id, std::move(factory)));
  };
  put_on_stage("ADODB.Connection", [this] {
    step("create ADODB.Connection");
    return automation::make_object<ConnectionDouble>(*this);
  });
  put_on_stage("ADODB.Recordset", [this] {
    step("create ADODB.Recordset");
    return automation::make_object<RecordsetDouble>(*this);
  });
  for (const auto& [prog_id, role] :
       {std::pair{"Lexbank.ErrMsg", "messages"}, std::pair{"Corvane.CPowerCheck", "rights"},
        std::pair{"Lexbank.CPartF", "wording"}, std::pair{"Corvane.CSystem", "system"}})
    put_on_stage(prog_id, [this, prog_id, role] {
      step(std::string("create ") + prog_id);
      return automation::make_object<CollaboratorDouble>(*this, role);
    });
  for (const char* right : {"CanInsert", "CanUpdate", "CanDelete", "CanApproved", "CanUnapproved",
                            "CanCancel", "CanFinished", "Owner"})
    set(right, 0);
  // What shows a table's columns to the builders of statements.
  for (const char* table : {"REVADDR", "STKCONTROLLER", "STKSHIPNOTE", "PARTCOSTSET", "STKCLOSEHD",
                            "STKCHECKHD", "STKCHECKDT", "STKTRANHD", "STKTRANDT"})
    finds_nothing(std::string("Select top 1 * From ") + table);
  finds_nothing("Select TOP 1 * From STKTRANDT");
  all_find_nothing(finding_nothing);
}

Stage::~Stage() {
  frame::collaborators() = {};
}

Object Stage::client(std::string_view class_name) {
  class_name_ = class_name;
  Object object = automation::create("Tallyra." + std::string(class_name));
  object.put("ConnectionString", connection_string);
  object.put("UserID", user);
  object.put("Language", "EN");
  object.put("SystemDatabase", system_database_);
  return object;
}

Stage& Stage::finds(const std::string& statement, Rows rows) {
  queries_[statement].push_back(std::move(rows));
  return *this;
}

Stage& Stage::finds_nothing(const std::string& statement, std::vector<std::string> columns) {
  empty_queries_[statement] = {std::move(columns), {}};
  return *this;
}

Stage& Stage::all_find_nothing(const std::vector<std::string>& statements) {
  for (const auto& statement : statements) finds_nothing(statement);
  return *this;
}

Stage& Stage::finds_nothing_else() {
  takes_any_query_ = true;
  return *this;
}

Stage& Stage::forgets(const std::string& statement) {
  queries_.erase(statement);
  return *this;
}

Stage& Stage::set(const std::string& member, Value value) {
  members_[member] = std::move(value);
  return *this;
}

Stage& Stage::fails(std::string call, automation::Error error, int occurrence) {
  failures_.push_back({std::move(call), std::move(error), occurrence});
  return *this;
}

Stage& Stage::fails_at(int step_number, automation::Error error) {
  failing_step_ = step_number;
  step_error_ = std::move(error);
  return *this;
}

std::string Stage::database_calls() const {
  std::istringstream lines(transcript_);
  std::string result;
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("C") || line.starts_with("R")) result += line + '\n';
  return result;
}

std::string Stage::rights_calls() const {
  std::istringstream lines(transcript_);
  std::string result;
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("rights.")) result += line + '\n';
  return result;
}

Stage& Stage::interrupts_at(int number, std::function<void()> what) {
  interrupted_moment_ = number;
  moments_ = 0;
  interruption_ = std::move(what);
  return *this;
}

void Stage::moment() {
  if (moments_++ != interrupted_moment_) return;
  interrupted_ = true;
  std::exchange(interruption_, nullptr)();
}

void Stage::step(const std::string& line, Line kind) {
  const auto fail = [&](const automation::Error& error) {
    failed_ = true;
    transcript_.append(line).append(" ! ").append(error.description()) += '\n';
    throw automation::Error(error);
  };
  moment();
  if (steps_++ == failing_step_) fail(step_error_);
  for (auto& failure : failures_)
    if (line.find(failure.call) != std::string::npos && --failure.occurrence == 0) fail(failure.error);
  if (kind == Line::shown) transcript_ += line + '\n';
}

const Rows& Stage::opened(const std::string& statement) {
  record_statement(class_name_, system_database_, statement);
  return rows_of(statement);
}

AdoScript::Executed Stage::executed(const std::string& statement) {
  record_statement(class_name_, system_database_, statement);
  return {.affected = 1};
}

const Rows& Stage::rows_of(const std::string& statement) {
  static const Rows nothing;
  if (const auto found = queries_.find(statement); found != queries_.end()) {
    auto& answers = found->second;
    told_.push_back(answers.front());
    if (answers.size() > 1) answers.pop_front();
    return told_.back();
  }
  if (const auto empty = empty_queries_.find(statement); empty != empty_queries_.end()) return empty->second;
  if (takes_any_query_) return nothing;
  ADD_FAILURE() << "a query that the stage was not told about: " << statement;
  throw automation::Error(-2147217900, "a query that the stage was not told about");
}

std::string Stage::forms(const std::string& member_name) const {
  const auto found = forms_.find(member_name);
  return found == forms_.end() ? "" : found->second;
}

std::string Stage::arguments(const std::string& member_name) const {
  const auto found = arguments_.find(member_name);
  return found == arguments_.end() ? "" : found->second;
}

void Stage::note_forms(const std::string& member_name, automation::Arguments arguments) {
  std::string forms, kinds;
  for (const auto& argument : arguments) {
    forms += argument.is_reference() ? '&' : 'v';
    kinds += (kinds.empty() ? "" : ", ") + std::string(argument.is_reference() ? "&" : "") +
             automation::printed(argument.get());
  }
  forms_[member_name] = forms;
  arguments_[member_name] = kinds;
}

std::string Stage::issue_document_number() {
  if (numbers_withheld > 0) {
    --numbers_withheld;
    return {};
  }
  if (issued_numbers_ == document_numbers) return {};
  std::string number = std::to_string(++issued_numbers_);
  return "K" + std::string(number.size() < 3 ? 3 - number.size() : 0, '0') + number;
}

}  // namespace tallyra::stage
