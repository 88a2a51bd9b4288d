#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"
#include "client/verbs/limit.h"

// Who has done what: the journal, latest first.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--from", "DATE", "nothing before that day"},
    {"--to", "DATE", "nothing after that day"},
    {"--action", "NAME", "only that action: close, approve, reopen, take over, ..."},
    {"--limit", "NUMBER", "no more rows than that, the latest; 50 when nothing is said, 0 for all"},
};
constexpr std::string_view examples[] = {
    "log --db stock.db",
    "log --db stock.db --action close --from 2024/01/01 --csv",
};

std::string condition_of(const VerbContext& context) {
  std::string condition = " Where SEQNO>0";
  if (const auto from = context.words().value("--from"))
    condition += " And DONEAT>=" + Reader::text_literal(day_text(date_of(*from, "date")));
  if (const auto to = context.words().value("--to"))
    condition += " And DONEAT<=" + Reader::text_literal(day_text(date_of(*to, "date")) + " 23:59:59");
  if (const auto action = context.words().value("--action"))
    condition += " And ACTION=" + Reader::text_literal(*action);
  return condition;
}

ExitStatus run(VerbContext& context) {
  Table table{"log",
              "",
              {{"when"},
               {"what"},
               {"of"},
               {"result"},
               {"detail"},
               {"user"},
               {"login"},
               {"host"},
               number_column("process")},
              {}};
  constexpr std::size_t usual_limit = 50;
  const std::size_t limit = limit_of(context, usual_limit);
  const std::string condition = condition_of(context);
  if (context.reader().has_table("TALLYRAJOURNAL"))
    table.rows = context.reader()
                     .rows(
                         "Select DONEAT,ACTION,SUBJECT,RESULT,DETAIL,USERID,OSUSER,HOSTNAME,PROCESSID"
                         " From TALLYRAJOURNAL" +
                         condition + " Order By DONEAT Desc,SEQNO Desc")
                     .rows;
  else
    context.tell("The database has no journal yet: the first close makes one.");
  if (limit != 0 && table.rows.size() > limit) {
    context.tell(std::to_string(table.rows.size() - limit) +
                 " earlier entries are not shown: --limit 0 shows all.");
    table.rows.resize(limit);
  }
  context.print(table);
  return exit_done;
}

}  // namespace

const Verb log_verb{
    .name = "log",
    .arguments = "",
    .summary = "who has closed, approved, reopened, counted or forced what, when and from where",
    .help =
        "Shows the journal of this program, latest first: what was done to which date or document, how it "
        "ended,\n"
        "for which user, and by which login, host and process.",
    .options = options,
    .examples = examples,
    .least_arguments = 0,
    .most_arguments = 0,
    .run = run,
};

}  // namespace tallyra::client
