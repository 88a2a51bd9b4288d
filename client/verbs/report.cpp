#include <filesystem>
#include <fstream>
#include <system_error>

#include "client/database/connection_text.h"
#include "client/file_path.h"
#include "client/refusal.h"
#include "client/report/page.h"
#include "client/text_file.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// What a close has come to, as a page to read, print and pass on.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--output", "FILE",
     "where it goes, - to print it; when nothing is said a page goes to report-YYYY-MM-DD.html here, tables "
     "are printed"},
};
constexpr std::string_view examples[] = {
    "report 2024/01/31 --db stock.db",
    "report 2024/01/31 --db stock.db --language DE --output january.html",
    "report 2024/01/31 --db stock.db --json",
};

std::string usual_file(automation::Date date) {
  std::string day = day_text(date);
  for (char& c : day)
    if (c == '/') c = '-';
  return "report-" + day + ".html";
}

// The database in use, what lies beside it, and any other database: it would be lost.
bool belongs_to_a_database(const VerbContext& context, const std::filesystem::path& file) {
  constexpr std::string_view first_bytes = "SQLite format 3";
  std::string begin(first_bytes.size(), ' ');
  std::ifstream(file, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
  if (begin == first_bytes) return true;
  const auto database = sqlite_file(context.session().connection_string.value_or(""));
  if (!database) return false;
  std::error_code error;
  const auto wanted = std::filesystem::weakly_canonical(file, error);
  for (const char* beside : {"", "-wal", "-shm", "-journal", ".keys"})
    if (wanted == std::filesystem::weakly_canonical(file_path(*database + beside), error)) return true;
  return false;
}

void write_file(const VerbContext& context, const std::string& path, const std::string& text) {
  const auto file = file_path(path);
  std::error_code error;
  if (std::filesystem::is_directory(file, error)) throw Refusal("'" + path + "' is a directory, no file");
  if (belongs_to_a_database(context, file))
    throw Refusal("'" + path + "' belongs to a database; nothing was written. Name another file");
  if (std::filesystem::exists(file, error) &&
      !context.confirm("'" + path + "' is there already. Replace it?"))
    throw Refusal("nothing was written");
  if (!replace_file(path, text)) throw Refusal("'" + path + "' cannot be written");
  context.tell("The report is in " + path + ".");
}

ExitStatus run(VerbContext& context) {
  const automation::Date date = date_of(context.argument(0));
  const auto records = close_records(context.reader());
  const CloseRecord* const record = find_record(records, date);
  if (!record)
    throw Refusal("there is no close of " + day_text(date) + " to report on; 'status' shows those there are");
  const MonthReport report = read_report(context.reader(), records, *record);
  const bool as_page = context.format() == OutputFormat::text;
  const std::string text = as_page ? report_page(report, words_for(context.session().language.value_or("")))
                                   : printed(report_tables(report), context.format(), 0);
  const std::string file = context.words().value("--output").value_or(as_page ? usual_file(date) : "-");
  if (file == "-")
    context.console().out << text;
  else
    write_file(context, file, text);
  return exit_done;
}

}  // namespace

const Verb report_verb{
    .name = "report",
    .arguments = "DATE",
    .summary = "what a close has come to, as a page to read and print",
    .help =
        "Writes one HTML page about the close of DATE, which needs nothing beside itself: quantities and\n"
        "values by department and material type, the largest changes since the close before, what\n"
        "stocktakings have posted, parts without a cost. Its texts are in the language of the session:\n"
        "English, German or Chinese. With --csv or --json the same figures are printed as tables.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
