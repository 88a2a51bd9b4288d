#include <filesystem>
#include <system_error>

#include "client/database/connection_text.h"
#include "client/database/journal.h"
#include "client/database/own_tables.h"
#include "client/file_path.h"
#include "client/refusal.h"
#include "client/setup/advised_command.h"
#include "client/setup/rights_table.h"
#include "client/setup/schema.h"
#include "client/setup/trouble.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// The tables of a database: making them and bringing them up to date.
namespace tallyra::client {
namespace {

constexpr std::string_view init_examples[] = {
    "init --db stock.db",
    "init --db \"DRIVER={PostgreSQL Unicode};Servername=db;Database=stock;Username=owner\"",
};
constexpr std::string_view upgrade_examples[] = {"upgrade --db stock.db"};

bool is_missing_file(const std::string& connection_string) {
  const auto file = sqlite_file(connection_string);
  std::error_code error;
  return file && !std::filesystem::exists(file_path(*file), error);
}

// Names the file that is there and is none of a database.
void require_database(VerbContext& context) {
  const std::string& connection_string = *context.session().connection_string;
  const auto trouble = trouble_with(context.reader(),
                                    "'init' makes a new file: name one that is not there yet, or that of a "
                                    "database; one that is damaged is "
                                    "restored from a backup");
  if (trouble)
    throw Refusal("'" + sqlite_file(connection_string).value_or(shown_connection(connection_string)) +
                  "': " + trouble->error + ". Nothing was changed; " + trouble->advice);
}

// Says what is wrong with a database that has tables already.
void require_no_tables(VerbContext& context) {
  if (is_missing_file(*context.session().connection_string)) return;
  require_database(context);
  const auto there = tables_there(context.reader());
  if (there.empty()) return;
  throw Refusal("the database has " + std::to_string(there.size()) + " of the tables already (" +
                there.front() + (there.size() > 1 ? ", ..." : "") +
                "); nothing was changed. 'upgrade' brings them up to date, 'doctor' looks at them");
}

void tell_whom_to_grant_what(const VerbContext& context) {
  const auto line = [&](const std::vector<std::string>& words) {
    return "\n    " + advised_command(words, context.session()) + "\n";
  };
  const std::string user = refusal_of_user_name(context.user()) ? std::string("ADMIN") : context.user();
  context.tell(
      "Nobody may do anything in it yet. Let an administrator do everything:" +
      line({"grant", user, "*", "all"}) + "let somebody enter and change documents of a kind, say receipts:" +
      line({"grant", "ANNA", "STK010POREV", "insert", "update"}) +
      "and somebody close the month:" + line({"grant", "BERND", "CStockClose", "insert", "approve"}) +
      "Departments, parts and orders come from the systems around this one. Whether all is well "
      "looks:" +
      line({"doctor"}));
}

ExitStatus run_init(VerbContext& context) {
  require_no_tables(context);
  // Its connection must not hold the file while another one makes the tables.
  context.close_reader();
  const std::string done = make_tables(*context.session().connection_string);
  make_own_tables(context.reader());
  journal(context, {"init", "", "done", done});
  context.tell("The database is made: " + done + ".");
  tell_whom_to_grant_what(context);
  return exit_done;
}

ExitStatus run_upgrade(VerbContext& context) {
  require_database(context);
  if (tables_there(context.reader()).empty())
    throw Refusal("the database has none of the tables: 'init' makes them");
  context.close_reader();
  const std::string done = make_tables(*context.session().connection_string);
  const bool had_own_tables = has_own_tables(context.reader());
  make_own_tables(context.reader());
  journal(context, {"upgrade", "", "done", done});
  context.tell("The database " + done + ".");
  if (!had_own_tables) context.tell("The tables for the lock and the journal of this program are made.");
  return exit_done;
}

}  // namespace

const Verb init_verb{
    .name = "init",
    .arguments = "",
    .summary = "makes the tables of a new database",
    .help =
        "Makes all tables in the database, on SQLite and PostgreSQL; the file of an SQLite database is made\n"
        "as well. A database that has any of the tables is left as it is. It says whom to grant what. For\n"
        "SQL Server and Access run the script in schema/ with the tools of the engine.",
    .options = {},
    .examples = init_examples,
    .least_arguments = 0,
    .most_arguments = 0,
    .run = run_init,
    .makes_database = true,
};

const Verb upgrade_verb{
    .name = "upgrade",
    .arguments = "",
    .summary = "brings the tables of a database up to date",
    .help =
        "Adds what the database lacks: tables, columns, indexes, the tables of this program, and sets the\n"
        "version. Nothing that is there is changed, nothing is dropped, and all of it is one transaction.\n"
        "Make a copy of the database before.",
    .options = {},
    .examples = upgrade_examples,
    .least_arguments = 0,
    .most_arguments = 0,
    .run = run_upgrade,
};

}  // namespace tallyra::client
