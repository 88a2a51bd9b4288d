#include <fstream>
#include <istream>
#include <ostream>

#include "automation/convert.h"
#include "client/batch/batch_call.h"
#include "client/call_guard.h"
#include "client/file_path.h"
#include "client/report_json.h"
#include "client/text_file.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

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

Json answer_to(const std::string& line, CallGuard& guard, const Session& session) try {
  const Call call = parse_batch_line(line);
  guard.before(call);
  const Outcome outcome = run_call(call, session);
  return report_object(outcome, guard.after(call, outcome));
} catch (const UsageError& error) {
  return usage_json(error.what());
} catch (const automation::Error& error) {
  return {{"success", false}, {"raised", {{"number", error.number()}, {"description", error.description()}}}};
}

ExitStatus answer_all(std::istream& in, std::ostream& out, const Session& session) {
  CallGuard guard(session);
  ExitStatus status = exit_done;
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (automation::trimmed(line).empty()) continue;
    Json answer = {{"line", number}};
    answer.update(answer_to(line, guard, session));
    if (!answer["success"].get<bool>()) status = exit_failed;
    out << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n" << std::flush;
  }
  return status;
}

ExitStatus run(VerbContext& context) {
  const Console& console = context.console();
  if (context.words().arguments.empty()) {
    if (!console.input) throw UsageError("there is nothing to read calls from");
    return answer_all(*console.input, console.out, context.bare_session());
  }
  require_readable(context.argument(0));
  std::ifstream in(file_path(context.argument(0)));
  return answer_all(in, console.out, context.bare_session());
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
