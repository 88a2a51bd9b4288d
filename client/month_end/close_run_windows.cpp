#include <windows.h>

#include <memory>
#include <nlohmann/json.hpp>

#include "automation/convert.h"
#include "automation/error.h"
#include "client/exit_status.h"
#include "client/month_end/close_run.h"
#include "client/month_end/interruption.h"
#include "client/month_end/period.h"
#include "client/month_end/run_watch.h"
#include "client/own_connection.h"
#include "client/platform/wide_text_windows.h"
#include "client/verbs/context.h"

// The class lives in a library that nothing can be told while it runs. So the run is a process of its own,
// this very program with a raw call, which is ended from outside. It gets the session by the environment: a
// command line can be read by others.
namespace tallyra::client {
namespace {

constexpr std::int32_t user_interrupt = 18;
constexpr int ending_interruption = 2;
constexpr DWORD look_every = 100;  // milliseconds

class Handle {
 public:
  explicit Handle(HANDLE handle = nullptr) : handle_(handle) {}
  ~Handle() { close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  HANDLE get() const { return handle_; }
  HANDLE* put() { return &handle_; }
  void close() {
    if (handle_) CloseHandle(handle_);
    handle_ = nullptr;
  }

 private:
  HANDLE handle_;
};

void hand_over(const char* variable, const std::optional<std::string>& value) {
  SetEnvironmentVariableW(wide_text(variable).c_str(), value ? wide_text(*value).c_str() : nullptr);
}

std::wstring command_line(const CloseOrder& order) {
  std::wstring program(32768, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  const Call call = close_call(order);
  std::string words = " --json --no-progress call CStockClose Insert " + day_text(order.date);
  for (const Field& field : call.fields) {
    const std::string value = automation::to_text(field.value);
    const std::string mark = field.value.holds<automation::Date>() ? "d:"
                             : field.value.is_text()               ? "t:"
                                                                   : "i:";
    words += " \"" + field.name + "=" + mark + value + "\"";
  }
  return L"\"" + program + L"\"" + wide_text(words);
}

// Ends its processes with this one, however this one ends.
HANDLE make_job() {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

std::string read_all(HANDLE pipe) {
  std::string text;
  char buffer[4096];
  for (DWORD read = 0; ReadFile(pipe, buffer, sizeof buffer, &read, nullptr) && read > 0;)
    text.append(buffer, read);
  return text;
}

Outcome failed(std::int32_t number, const std::string& description) {
  Outcome outcome;
  outcome.prog_id = "Tallyra.CStockClose";
  outcome.member = "Insert";
  outcome.raised = automation::Error(number, description);
  return outcome;
}

Outcome outcome_of(const std::string& output) {
  const auto json = nlohmann::json::parse(output, nullptr, false);
  if (!json.is_object()) return failed(automation::error_number::cannot_create, "The close has told nothing");
  if (json.contains("raised"))
    return failed(json["raised"].value("number", 0), json["raised"].value("description", std::string()));
  Outcome outcome;
  outcome.prog_id = "Tallyra.CStockClose";
  outcome.member = "Insert";
  if (json.contains("result") && json["result"].is_number()) outcome.result = json["result"].get<float>();
  if (json.contains("errNumber") && json["errNumber"].is_number())
    outcome.error_number = json["errNumber"].get<double>();
  if (json.contains("errDescription") && json["errDescription"].is_string())
    outcome.error_description = json["errDescription"].get<std::string>();
  return outcome;
}

// What is committed; a document is when all its lines are written.
LineCounter committed_lines(const std::string& connection_string) {
  return [connection = std::make_shared<OwnConnection>(connection_string)] {
    return static_cast<std::size_t>(
        connection->count("Select Count(*) As N From STKTRANDT Inner Join STKTRANHD"
                          " On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANHD.STATUSSN=0 And " +
                          std::string(close_documents_only)));
  };
}

// Whether the process ended by itself.
bool wait_for(HANDLE process) {
  while (WaitForSingleObject(process, look_every) == WAIT_TIMEOUT)
    if (Interruptions::count() >= ending_interruption) {
      TerminateProcess(process, static_cast<UINT>(exit_interrupted));
      WaitForSingleObject(process, INFINITE);
      return false;
    }
  return true;
}

Outcome run_in_process(const CloseOrder& order) {
  constexpr DWORD room_for_the_answer = 1U << 20U;
  hand_over("TALLYRA_DB", order.session.connection_string);
  hand_over("TALLYRA_USER", order.session.user);
  hand_over("TALLYRA_LANGUAGE", order.session.language);
  hand_over("TALLYRA_KIND", order.session.database_kind);
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  Handle read_end;
  Handle write_end;
  if (!CreatePipe(read_end.put(), write_end.put(), &inherited, room_for_the_answer))
    return failed(automation::error_number::out_of_memory, "No pipe to the close");
  SetHandleInformation(read_end.get(), HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = write_end.get();
  PROCESS_INFORMATION started{};
  std::wstring line = command_line(order);
  const Handle job(make_job());
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE,
                      CREATE_NEW_PROCESS_GROUP | CREATE_SUSPENDED, nullptr, nullptr, &startup, &started))
    return failed(automation::error_number::cannot_create, "The process of the close could not be started");
  const Handle process(started.hProcess);
  const Handle thread(started.hThread);
  AssignProcessToJobObject(job.get(), process.get());
  ResumeThread(thread.get());
  write_end.close();
  if (!wait_for(process.get())) return failed(user_interrupt, "The close was interrupted");
  return outcome_of(read_all(read_end.get()));
}

}  // namespace

Outcome run_close(const CloseOrder& order, const Console& console) {
  const Interruptions interruptions;
  const RunWatch watch(
      {.plan = order.plan,
       .day = day_text(order.date),
       .show_progress = order.show_progress,
       .make_counter = [&] { return committed_lines(order.session.connection_string.value_or("")); },
       .would_leave = "leaves the documents of the departments that are done, which the next close deletes"},
      console);
  return run_in_process(order);
}

}  // namespace tallyra::client
