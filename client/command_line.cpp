#include "client/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "client/catalogue.h"
#include "client/help_text.h"
#include "client/usage_error.h"
#include "client/version.h"

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

// The options of a raw call and what they were given.
struct CallOptions {
  CallOptions() : app(std::string(help_summary), "tallyra-client") {
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(help_details());
    app.allow_extras();
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.add_flag("--list", list, "Print the classes with their members and arguments and exit");
    app.add_flag("--version", version, "Print the version and exit");
    app.add_option("--db", db, "Path of an SQLite file, or a whole connection string")->type_name("DATABASE");
    app.add_option("--user", user, "User the call is made for")->type_name("NAME");
    app.add_option("--language", language, "Language of messages and generated words")->type_name("CODE");
    app.add_option("--kind", kind, "Database kind, which decides the SQL dialect; MSACCESS unless given")
        ->type_name("MSACCESS|MSSQLSERVER")
        ->transform(CLI::IsMember({"MSACCESS", "MSSQLSERVER"}, CLI::ignore_case).description(""));
    app.add_option("--config", config, "File with lines such as db=stock.db")->type_name("FILE");
    app.add_flag("--json", json, "Print JSON instead of tables");
    app.add_flag("--progress", progress,
                 "Show the progress of CStockClose Insert also where the error output is no terminal");
    app.add_flag("--no-progress", no_progress, "Show no progress on a terminal either");
  }

  Session session(const Environment& environment) const {
    Configuration given;
    const auto set = [](const std::optional<std::string>& value, const char* option) {
      return value ? std::optional(Setting{*value, option}) : std::nullopt;
    };
    given.db = set(db, "--db");
    given.user = set(user, "--user");
    given.language = set(language, "--language");
    given.kind = set(kind, "--kind");
    return session_of(given, read_configuration(config, environment));
  }

  CLI::App app;
  std::optional<std::string> db;
  std::optional<std::string> user;
  std::optional<std::string> language;
  std::optional<std::string> kind;
  std::optional<std::string> config;
  bool list = false;
  bool version = false;
  bool json = false;
  bool progress = false;
  bool no_progress = false;
};

}  // namespace

std::string program_help() {
  return CallOptions().app.help();
}

std::variant<TextRequest, CallRequest> parse_command_line(const std::vector<std::string>& words,
                                                          const Environment& environment) {
  CallOptions options;
  try {
    options.app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    return TextRequest{program_help()};
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (options.list) return TextRequest{catalogue_text()};
  if (options.version) return TextRequest{version_text()};
  if (options.progress && options.no_progress)
    throw UsageError("--progress and --no-progress exclude each other");

  CallRequest request;
  request.json = options.json;
  if (options.progress || options.no_progress) request.progress = options.progress;
  request.call = parse_call(call_words(options.app.remaining()));
  request.session = options.session(environment);
  return request;
}

}  // namespace tallyra::client
