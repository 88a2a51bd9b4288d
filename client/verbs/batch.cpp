#include <fstream>
#include <istream>
#include <optional>
#include <ostream>

#include "automation/convert.h"
#include "automation/folded_name.h"
#include "client/batch/batch_call.h"
#include "client/call_guard.h"
#include "client/file_path.h"
#include "client/report_json.h"
#include "client/text_file.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"
#include "client/wait_notice.h"

// Many calls in one process, for programs.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {
    "batch calls.jsonl --db stock.db --user ANNA > answers.jsonl",
    "batch --db stock.db --user ANNA",
};

Json usage_json(const char* text) {
  return {{"success", false}, {"usage", text}};
}

// It takes its time without any lock.
bool is_month_close(const Call& call) {
  return automation::equals_folded(call.prog_id, "Tallyra.CStockClose") &&
         automation::equals_folded(call.member, "Insert");
}

Outcome outcome_of(const Call& call, CallGuard& guard, const VerbContext& context) {
  std::optional<WaitNotice> notice;
  if (!is_month_close(call)) notice.emplace(context.console());
  guard.before(call);
  return run_call(call, context.bare_session());
}

Json answer_to(const std::string& line, CallGuard& guard, const VerbContext& context) try {
  const Call call = parse_batch_line(line);
  const Outcome outcome = outcome_of(call, guard, context);
  return report_object(outcome, guard.after(call, outcome));
} catch (const UsageError& error) {
  return usage_json(error.what());
} catch (const automation::Error& error) {
  return {{"success", false}, {"raised", {{"number", error.number()}, {"description", error.description()}}}};
}

ExitStatus answer_all(std::istream& in, const VerbContext& context) {
  CallGuard guard(context.bare_session());
  std::ostream& out = context.console().out;
  ExitStatus status = exit_done;
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (automation::trimmed(line).empty()) continue;
    Json answer = {{"line", number}};
    answer.update(answer_to(line, guard, context));
    if (!answer["success"].get<bool>()) status = exit_failed;
    out << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n" << std::flush;
  }
  return status;
}

ExitStatus run(VerbContext& context) {
  const Console& console = context.console();
  if (context.words().arguments.empty()) {
    if (!console.input) throw UsageError("there is nothing to read calls from");
    return answer_all(*console.input, context);
  }
  require_readable(context.argument(0));
  std::ifstream in(file_path(context.argument(0)));
  return answer_all(in, context);
}

}  // namespace

const Verb batch_verb{
    .name = "batch",
    .arguments = "[FILE]",
    .summary = "read calls as JSON lines, answer a JSON line each",
    .help =
        "Reads a call from each line of FILE, or of the input, and answers with a line as it is done:\n"
        "  {\"class\": \"CRevAddr\", \"member\": \"Read\", \"arguments\": [\"A1\"]}\n"
        "  {\"class\": \"CRevAddr\", \"member\": \"Insert\", \"arguments\": [\"A1\", {\"ADDRNO\": \"A1\"}]}\n"
        "  {\"words\": [\"CRevAddr\", \"Read\", \"A1\"]}\n"
        "An object among the arguments is the two collections. Texts are as words of the command line, "
        "whole\n"
        "numbers 32-bit integers, other numbers doubles. The answer has what --json shows of a call, the\n"
        "number of the line, and \"usage\" for a line that is no call, or \"complaints\" for what the class\n"
        "takes in silence. All calls are made in one process, for one user. It ends with 1 when one failed.",
    .options = {},
    .examples = examples,
    .least_arguments = 0,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
