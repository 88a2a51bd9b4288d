#include "standins/ado/postgresql/wire.h"

#include <poll.h>

#include <algorithm>
#include <chrono>

#include "automation/error.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/postgresql/postgresql_error.h"

namespace tallyra::standins::ado {
namespace {

// A statement over its limit is ended by the server; only one that is gone takes longer still.
constexpr std::int32_t grace_seconds = 5;

std::int64_t milliseconds_now() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void ignore_notice(void*, const PGresult*) {}

PGconn* connect(const PostgresqlOptions& options) {
  std::vector<const char*> keywords;
  std::vector<const char*> values;
  for (const auto& [keyword, value] : options.options) {
    keywords.push_back(keyword.c_str());
    values.push_back(value.c_str());
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  return PQconnectdbParams(keywords.data(), values.data(), 0);
}

}  // namespace

Wire::Wire(const PostgresqlOptions& options) : connection_(connect(options)) {
  PGconn* const connection = connection_.get();
  if (connection == nullptr) throw automation::Error(automation::error_number::out_of_memory);
  if (PQstatus(connection) != CONNECTION_OK) throw connection_error(connection);
  PQsetNoticeReceiver(connection, ignore_notice, nullptr);
  if (PQenterPipelineMode(connection) != 1) throw connection_error(connection);
}

bool Wire::is_lost() const {
  return given_up_ || PQstatus(connection_.get()) == CONNECTION_BAD;
}

void Wire::raise_loss() {
  commands_ = 0;
  given_up_ = true;
  throw connection_error(connection_.get());
}

void Wire::require(int sent) {
  if (sent != 1) raise_loss();
  ++commands_;
}

void Wire::add(const std::string& sql) {
  require(PQsendQueryParams(connection_.get(), sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0));
}

void Wire::add_preparation(const std::string& name, const std::string& sql, const std::vector<Oid>& types) {
  require(PQsendPrepare(connection_.get(), name.c_str(), sql.c_str(), static_cast<int>(types.size()),
                        types.data()));
}

void Wire::add_description(const std::string& name) {
  require(PQsendDescribePrepared(connection_.get(), name.c_str()));
}

void Wire::add_execution(const std::string& name, const std::vector<const char*>& values) {
  require(PQsendQueryPrepared(connection_.get(), name.c_str(), static_cast<int>(values.size()), values.data(),
                              nullptr, nullptr, 0));
}

std::vector<Result>& Wire::exchange() {
  results_.clear();
  if (is_lost() || PQpipelineSync(connection_.get()) != 1) raise_loss();
  deadline_ = seconds_ == 0 ? 0 : milliseconds_now() + (std::int64_t{seconds_} + grace_seconds) * 1000;
  read_results();
  commands_ = 0;
  // A server that goes down says so in place of a result.
  if (is_lost()) raise_loss();
  return results_;
}

// Each command has one result and a null pointer behind it; all of them together the mark of their end.
void Wire::read_results() {
  for (;;) {
    Result result(next_result());
    if (!result) {
      if (is_lost()) raise_loss();
      continue;
    }
    if (PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC) return;
    if (results_.size() < commands_)
      results_.push_back(std::move(result));
    else
      replace_last(std::move(result));
  }
}

// A statement outside a transaction is committed behind its end, which the server may refuse.
void Wire::replace_last(Result result) {
  if (results_.empty() || !succeeded(results_.back()) || PQresultStatus(result.get()) != PGRES_FATAL_ERROR)
    raise_loss();
  results_.back() = std::move(result);
}

PGresult* Wire::next_result() {
  if (deadline_ != 0) wait_for_input();
  return PQgetResult(connection_.get());
}

void Wire::wait_for_input() {
  PGconn* const connection = connection_.get();
  while (PQisBusy(connection) != 0) {
    const std::int64_t left = deadline_ - milliseconds_now();
    pollfd descriptor{PQsocket(connection), POLLIN, 0};
    if (left <= 0) {
      commands_ = 0;
      given_up_ = true;
      throw automation::Error(provider_error::timeout, "The server does not answer");
    }
    if (poll(&descriptor, 1, static_cast<int>(std::min<std::int64_t>(left, 60'000))) > 0 &&
        PQconsumeInput(connection) != 1)
      raise_loss();
  }
}

}  // namespace tallyra::standins::ado
