#include "client/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "client/catalogue.h"
#include "client/help_text.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() { column_width(26); }
  std::string make_usage(const CLI::App*, std::string) const override { return std::string(help_usage); }
};

// "-5", "-.5": an argument, not an option.
bool is_negative_number(std::string_view word) {
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  if (word.size() > 1 && is_digit(word[1])) return true;
  return word.size() > 2 && word[1] == '.' && is_digit(word[2]);
}

// What the options have left over, without the "--" that ended them.
std::vector<std::string> call_words(std::vector<std::string> left_over) {
  const auto mark = std::ranges::find(left_over, "--");
  for (auto word = left_over.begin(); word != mark; ++word)
    if (word->size() > 1 && word->front() == '-' && !is_negative_number(*word))
      throw UsageError("there is no option " + *word + "; to pass it as an argument put -- before it");
  if (mark != left_over.end()) left_over.erase(mark);
  return left_over;
}

}  // namespace

std::variant<TextRequest, CallRequest> parse_command_line(const std::vector<std::string>& words) {
  CallRequest request;
  std::string db;
  bool list = false;
  bool progress = false;
  bool no_progress = false;

  CLI::App app(std::string(help_summary), "tallyra-client");
  app.formatter(std::make_shared<HelpFormatter>());
  app.footer(help_details());
  app.allow_extras();
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.add_flag("--list", list, "Print the classes with their members and arguments and exit");
  const auto* db_option = app.add_option("--db", db, "Path of an SQLite file, or a whole connection string")
                              ->type_name("DATABASE");
  app.add_option("--user", request.session.user, "User the call is made for")->type_name("NAME");
  app.add_option("--language", request.session.language, "Language of messages and generated words")
      ->type_name("CODE");
  const auto* kind_option =
      app.add_option("--kind", request.session.database_kind,
                     "Database kind, which decides the SQL dialect; MSACCESS unless given")
          ->type_name("MSACCESS|MSSQLSERVER")
          ->transform(CLI::IsMember({"MSACCESS", "MSSQLSERVER"}, CLI::ignore_case).description(""));
  app.add_flag("--json", request.json, "Print JSON instead of tables");
  app.add_flag("--progress", progress,
               "Show the progress of CStockClose Insert also where the error output is no terminal");
  app.add_flag("--no-progress", no_progress, "Show no progress on a terminal either");

  try {
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    return TextRequest{app.help()};
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (list) return TextRequest{catalogue_text()};

  request.session.kind_given = kind_option->count() != 0;
  if (progress && no_progress) throw UsageError("--progress and --no-progress exclude each other");
  if (progress || no_progress) request.progress = progress;
  request.call = parse_call(call_words(app.remaining()));
  if (db_option->count() != 0) request.session.connection_string = connection_string_for(db);
  return request;
}

}  // namespace tallyra::client
